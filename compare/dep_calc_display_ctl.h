// The comparison screen: step 2 of 2.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "compare/dep_calc_display_ctl_events.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/user_control.h"
#include "engine/method_results.h"

namespace depcalc {

/// Shows an asset's schedules side by side and writes the chosen one into the record at once.
/// What the record had on entry is kept, so that leaving without saving puts it back. Shown, or
/// painted for the first time after a button has acted, it fetches the record anew, calculates and
/// fills itself.
class DepCalcDisplayCtl : public UserControl {
 public:
  DepCalcDisplayCtl(UserControl& parent, std::string name, DepCalcDisplayCtlEvents& events);

  Shape BackShape{*this, "BackShape"};
  Label CalcDepLabel{*this, "CalcDepLabel", "Calculate Depreciation"};
  Label ViewAllLabel{*this, "ViewAllLabel", "  View All   Assets  "};
  Label HelpLabel{*this, "HelpLabel", "Using this calculator"};
  Label TitleLabel{*this, "TitleLabel", "  Choose a depreciation method for your asset:"};
  Label stepLabel{*this, "stepLabel", "Step 2 of 2"};
  Label AIDLabel{*this, "AIDLabel", "Asset ID"};
  Label AID{*this, "AID"};
  Label ANameLabel{*this, "ANameLabel", "Name"};
  Label AName{*this, "AName"};

  OptionButton SLOption{*this, "SLOption", "Straight Line"};
  OptionButton SYDOption{*this, "SYDOption", "Sum of the Years' Digits"};
  OptionButton DDBOption{*this, "DDBOption", "Double Declining Balance"};
  /// A header row, a row for each fiscal year and a total row; a column of years and one for
  /// each schedule. The current column is the chosen schedule's.
  Grid DisplayTable{*this, "DisplayTable", 2, 4};
  Label TotalHelp{*this, "TotalHelp", "Why is the Double Declining Balance total different?"};
  OptionButton UoPOption{*this, "UoPOption", "Units of Production"};
  Grid UoPTable{*this, "UoPTable", 1, 2};  ///< caption and rate

  PicturePair SaveButton{*this, "SaveButton", "save", "Save", 'S'};
  PicturePair CloseButton{*this, "CloseButton", "edit", "Edit", 'E'};

 private:
  using Amounts = std::vector<Currency>;

  void Show() override;
  void Paint() override;
  void Resize() override;
  void Hide() override;

  // dep_calc_display_ctl.cpp
  void connectLabels();
  void connectOptions();
  void connectButtons();
  void save();
  void close();
  void viewAll();
  [[nodiscard]] CalculateDep& record() const;

  // display_fill.cpp
  void fill();
  void forgetEarlierFill();
  void keepPrior();
  void sizeTable();
  void writeHeaders();
  void DoDepCalculations();
  void DisplayCalcsinTable();
  void showSchedule(int column, const Amounts& amounts);

  // method_choice.cpp
  void selectOption();
  void choose(OptionButton& option);
  void PopulateDepInfo();
  void RevertDepInfo();
  void markChosenColumn();

  // display_layout.cpp
  void setLooks();
  void placeControls();
  void layOut();

  DepCalcDisplayCtlEvents& events_;
  CalculateDepPtr record_;
  bool painted_ = false;
  bool laying_out_ = false;
  std::int16_t years_ = 0;  ///< fiscal years shown
  MethodResults results_;
  std::string prior_method_;
  Amounts prior_amounts_;
};

}  // namespace depcalc
