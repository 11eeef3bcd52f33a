// Where the comparison screen's controls stand and how they look.
#include "compare/dep_calc_display_ctl.h"
#include "controls/colour_scheme.h"
#include "controls/page_style.h"

namespace depcalc {
namespace {

// Twips.
constexpr int label_height = 240;
constexpr int asset_top = 1275;
constexpr int option_top = 1800;
constexpr int option_height = 270;
constexpr int table_top = 2145;
constexpr int year_width = 1500;
constexpr int schedule_width = 2895;
constexpr int grid_border = 30;
constexpr int rate_caption_width = 2700;
constexpr int rate_width = 1500;
constexpr int rate_height = 360;
constexpr int bottom_margin = 270;

}  // namespace

void DepCalcDisplayCtl::setLooks() {
  setBackColour(scheme::white);
  style::currentTab(CalcDepLabel);
  style::otherTab(ViewAllLabel);
  ViewAllLabel.setMnemonic('V');
  style::title(TitleLabel);
  style::pageHelp(HelpLabel);
  for (Label* link : {&stepLabel, &TotalHelp}) style::helpLink(*link);
  HelpLabel.setBackColour(scheme::white);
  HelpLabel.setAlignment(TextAlignment::right);
  stepLabel.setAlignment(TextAlignment::right);
  HelpLabel.setMnemonic('U');
  stepLabel.setMnemonic('T');
  TotalHelp.setMnemonic('Y');
  for (Label* label : {&AIDLabel, &ANameLabel, &AID, &AName}) style::caption(*label);
  AIDLabel.setBold(true);
  ANameLabel.setBold(true);
  AID.setForeColour(window_text);
  AName.setForeColour(window_text);
  for (OptionButton* option : {&SLOption, &SYDOption, &DDBOption, &UoPOption}) {
    option->setFont({style::body_points});
    option->setBackColour(scheme::white);
  }
  UoPTable.setKind(0, 0, CellKind::caption);
  UoPTable.setKind(0, 1, CellKind::amount);
  UoPTable.setAlignment(0, 1, CellAlignment::rightCenter);
}

/// Everything below the table follows its height, and the page follows everything.
void DepCalcDisplayCtl::placeControls() {
  CalcDepLabel.setPlace(style::calculate_tab);
  ViewAllLabel.setPlace(style::view_all_tab);
  HelpLabel.setPlace(style::page_help);
  TitleLabel.setPlace(style::page_title);
  stepLabel.setPlace(style::page_step);
  AIDLabel.setPlace({style::inner_left, asset_top, 1200, label_height});
  AID.setPlace({2100, asset_top, 2250, label_height});
  ANameLabel.setPlace({4455, asset_top, 900, label_height});
  AName.setPlace({5400, asset_top, style::inner_right - 5400, label_height});

  int column_left = style::inner_left;
  DisplayTable.setColumnWidth(0, year_width);
  column_left += year_width;
  for (OptionButton* option : {&SLOption, &SYDOption, &DDBOption}) {
    option->setPlace({column_left, option_top, schedule_width, option_height});
    column_left += schedule_width;
  }
  int table_height = grid_border;
  for (int row = 0; row < DisplayTable.rows(); ++row) table_height += DisplayTable.rowHeight(row);
  for (int column = 1; column < DisplayTable.columns(); ++column) {
    DisplayTable.setColumnWidth(column, schedule_width);
  }
  DisplayTable.setPlace(
      {style::inner_left, table_top, column_left - style::inner_left + grid_border, table_height});

  const int below_table = table_top + table_height;
  TotalHelp.setPlace({style::inner_left, below_table + 105, 6000, label_height});
  const int rate_top = below_table + 555;
  UoPOption.setPlace({style::inner_left, rate_top, 2550, option_height});
  UoPTable.setColumnWidth(0, rate_caption_width);
  UoPTable.setColumnWidth(1, rate_width);
  UoPTable.setRowHeight(0, rate_height);
  UoPTable.setPlace({3645, rate_top - 45, rate_caption_width + rate_width + grid_border,
                     rate_height + grid_border});

  const int buttons_top = rate_top + 915;
  SaveButton.setRole(ButtonRole::primary);
  SaveButton.setPlace({style::inner_left, buttons_top, 1500, style::button_height});
  CloseButton.setPlace({2550, buttons_top, 1500, style::button_height});
  const int frame_height = buttons_top + style::button_height + 360 - style::frame_top;
  style::frame(BackShape, frame_height);
  setSize(style::page_width, style::frame_top + frame_height + bottom_margin);
}

void DepCalcDisplayCtl::layOut() {
  if (laying_out_) return;
  laying_out_ = true;
  placeControls();
  events_.ResizedDisplay();
  laying_out_ = false;
}

void DepCalcDisplayCtl::Resize() { layOut(); }

}  // namespace depcalc
