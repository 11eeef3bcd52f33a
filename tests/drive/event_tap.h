// Events of the screens, heard and raised by a script.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "DepCalc/screen_maker.h"

namespace depcalc::drive {

/// Stands between a container and the maker of its screens. Any event of a screen can be raised
/// through it, one that the screen itself never raises too.
class EventTap : public ScreenMaker {
 public:
  /// `heard`, where given, gets a line for each event of the register:
  ///
  ///     event ButtonClick Edit
  ///     event ResizedDisplay
  ///     event DeleteButtonClick {A1,A3,-} 1
  ///     event GetCalcDepAll {A1,A3,-} 2022 5 2
  ///
  /// when it is raised; GetCalcDepAll when it was answered, with the answer. An array of assets
  /// reads as their IDs, "-" for an empty slot; a single record is not shown.
  EventTap(ScreenMaker& maker, std::ostream* heard);
  ~EventTap() override;

  /// Those of the container, once it has been made.
  [[nodiscard]] DepCalcCtlEvents& entry() const { return *entry_; }
  [[nodiscard]] DepCalcDisplayCtlEvents& compare() const { return *compare_; }
  [[nodiscard]] DepCalcViewEvents& view() const;

  // ScreenMaker
  Screen makeCtl(UserControl& container, std::string name, DepCalcCtlEvents& events) override;
  Screen makeDisplay(UserControl& container, std::string name,
                     DepCalcDisplayCtlEvents& events) override;
  Screen makeView(UserControl& container, std::string name, DepCalcViewEvents& events) override;
  Screen makePopup(UserControl& container, std::string name, DepCalcPopupEvents& events) override;

 private:
  class View;

  ScreenMaker& maker_;
  std::ostream* heard_;
  DepCalcCtlEvents* entry_ = nullptr;
  DepCalcDisplayCtlEvents* compare_ = nullptr;
  std::unique_ptr<View> view_;
};

}  // namespace depcalc::drive
