// Where the register's controls stand and how they look.
#include <algorithm>

#include "controls/colour_scheme.h"
#include "controls/page_style.h"
#include "register/dep_calc_view.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

// Twips.
constexpr int line_top = 1155;
constexpr int line_height = 240;
constexpr int buttons_top = 1560;
constexpr int button_width = 1395;
constexpr int button_step = 1680;
constexpr int table_top = 2205;
constexpr int least_frame_height = 6240;
constexpr int below_table = 300;
constexpr int below_frame = 270;

}  // namespace

void DepCalcView::setLooks() {
  setBackColour(scheme::white);
  BackShape.setForeColour(scheme::dark_red);
  BackShape.setBackColour(scheme::white);
  style::otherTab(CalcDepLabel);
  CalcDepLabel.setPlace(style::calculate_tab);
  CalcDepLabel.setMnemonic('C');
  style::currentTab(ViewAllLabel);
  ViewAllLabel.setPlace(style::view_all_tab);
  style::pageHelp(HelpLabel);
  HelpLabel.setBackColour(scheme::white);
  HelpLabel.setAlignment(TextAlignment::right);
  HelpLabel.setMnemonic('U');
  HelpLabel.setPlace(style::page_help);
  style::title(TitleLabel);
  TitleLabel.setPlace(style::page_title);
  TitleLabel.setTarget(AssetViewTable);
  for (Label* line : {&InstrLabel, &NoAssetsLabel}) {
    style::caption(*line);
    line->setPlace({style::inner_left, line_top, 8400, line_height});
  }
  NewButton.setRole(ButtonRole::primary);
  int left = style::inner_left;
  for (PicturePair* button : {&NewButton, &EditButton, &DeleteButton, &PrintButton}) {
    button->setPlace({left, buttons_top, button_width, style::button_height});
    left += button_step;
  }
  for (PictureBox* box : {&Picture1, &Picture2, &Picture3, &Picture4}) {
    box->setBackColour(scheme::white);
    box->hide();
  }
}

void DepCalcView::ArrangeControls() {
  myArranging = true;
  const Grid& table = AssetViewTable;
  const auto pixels = [this](int count) { return toLong32HalfEven(count * myPixel); };
  const int assets = table.columns() - 1;
  const int assets_width = assets == 0 ? 0 : assets * table.columnWidth(1);
  AssetViewTable.setPlace({style::inner_left, table_top,
                           assets_width + table.columnWidth(0) + pixels(4),
                           table.rows() * table.rowHeight(1) + pixels(3)});

  const bool shown = table.visible();
  const int table_right = shown ? table.left() + table.width() : 0;
  const int table_bottom = shown ? table.top() + table.height() : 0;
  const int inner_margin = style::inner_left - style::frame_left;
  const int frame_width =
      std::max(style::frame_width, table_right + inner_margin - style::frame_left);
  const int frame_height =
      std::max(least_frame_height, table_bottom + below_table - style::frame_top);
  style::frame(PageShape, frame_height);
  PageShape.setWidth(frame_width);
  setSize(frame_width + 2 * style::frame_left, style::frame_top + frame_height + below_frame);
  BackShape.setPlace({pixels(1), pixels(1), width() - pixels(2), height() - pixels(2)});
  events_.ResizedDisplay();
  myArranging = false;
}

}  // namespace depcalc
