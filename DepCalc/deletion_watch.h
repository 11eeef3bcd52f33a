// A host that hears of deletions.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "DepCalc/screen_maker.h"

namespace depcalc {

/// Stands between a container and the maker of its screens. What the screens ask goes on to the
/// container; a deletion by way of the host, which is told which asset it is.
class DeletionWatch final : public ScreenMaker {
 public:
  /// Is to run `answer` at once: in it the container deletes asset `number`, counted from 1.
  using Deletion = std::function<void(std::int32_t number, const std::function<void()>& answer)>;

  /// `maker` is lent and outlives the watch, which outlives the screens.
  DeletionWatch(ScreenMaker& maker, Deletion deletion);
  ~DeletionWatch() override;

  Screen makeCtl(UserControl& container, std::string name, DepCalcCtlEvents& events) override;
  Screen makeDisplay(UserControl& container, std::string name,
                     DepCalcDisplayCtlEvents& events) override;
  Screen makeView(UserControl& container, std::string name, DepCalcViewEvents& events) override;
  Screen makePopup(UserControl& container, std::string name, DepCalcPopupEvents& events) override;

 private:
  class View;

  ScreenMaker& maker_;
  Deletion deletion_;
  std::unique_ptr<View> view_;
};

}  // namespace depcalc
