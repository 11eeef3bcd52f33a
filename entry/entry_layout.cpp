// Where the entry form's controls stand and how they look.
#include "controls/colour_scheme.h"
#include "controls/page_style.h"
#include "entry/dep_calc_ctl.h"

namespace depcalc {
namespace {

// Twips.
constexpr int page_height = 7050;
constexpr int frame_height = 6240;
constexpr int first_row = 1575;
constexpr int row_step = 480;
constexpr int box_width = 3000;
constexpr int box_height = 315;
constexpr int label_drop = 45;  ///< puts a label's text on the line of the box beside it
constexpr int label_height = 225;
constexpr int buttons_top = 5895;

/// A column of labels with their boxes.
struct Column {
  int label_left;
  int label_width;
  int box_left;
};
constexpr Column left_column{style::inner_left, 2520, 3450};
constexpr Column right_column{7050, 2145, 9255};

void placeRow(const Column& column, int row, Label& label, InputControl& box) {
  const int top = first_row + row * row_step;
  style::helpLink(label);
  label.setPlace({column.label_left, top + label_drop, column.label_width, label_height});
  label.setTarget(box);
  box.setPlace({column.box_left, top, box_width, box_height});
}

}  // namespace

void DepCalcCtl::layOut() {
  setSize(style::page_width, page_height);
  setBackColour(scheme::white);
  style::frame(BackShape, frame_height);
  style::currentTab(CalcDepLabel);
  CalcDepLabel.setPlace(style::calculate_tab);
  style::otherTab(ViewAllLabel);
  ViewAllLabel.setPlace(style::view_all_tab);
  ViewAllLabel.setMnemonic('V');
  style::pageHelp(HelpLabel);
  HelpLabel.setBackColour(scheme::white);
  HelpLabel.setAlignment(TextAlignment::right);
  HelpLabel.setPlace(style::page_help);
  HelpLabel.setMnemonic('U');
  style::title(TitleLabel);
  TitleLabel.setPlace(style::page_title);
  style::helpLink(stepLabel);
  stepLabel.setAlignment(TextAlignment::right);
  stepLabel.setPlace(style::page_step);
  stepLabel.setMnemonic('T');

  placeRow(left_column, 0, AIDLabel, IDText);
  placeRow(left_column, 1, ANameLabel, NameText);
  placeRow(left_column, 2, ASerialLabel, SerialText);
  placeRow(left_column, 3, ADeptLabel, DeptText);
  placeRow(left_column, 4, AStartDateLabel, StartDateText);
  placeRow(left_column, 5, FYEndLabel, FYEndText);
  placeRow(right_column, 0, DRecoveryLabel, DRecoveryText);
  placeRow(right_column, 1, DConvLabel, DConvList);
  placeRow(right_column, 2, ABasisLabel, BasisText);
  placeRow(right_column, 3, ASalvageLabel, SalvageText);
  placeRow(right_column, 4, ProdCapLabel, ProdCapText);
  for (TextBox* box : {&IDText, &NameText, &SerialText, &DeptText, &StartDateText, &FYEndText,
                       &DRecoveryText, &BasisText, &SalvageText, &ProdCapText}) {
    box->setFont({style::body_points});
  }
  DConvList.setFont({style::body_points});
  for (TextBox* amount : {&DRecoveryText, &BasisText, &SalvageText, &ProdCapText}) {
    amount->setAlignment(TextAlignment::right);
  }

  CalcButton.setRole(ButtonRole::primary);
  CalcButton.setPlace({style::inner_left, buttons_top, 1800, style::button_height});
  ClearButton.setPlace({2850, buttons_top, 1500, style::button_height});
  SaveButton.setPlace({4530, buttons_top, 1500, style::button_height});
}

}  // namespace depcalc
