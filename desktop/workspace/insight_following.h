// Which asset and which of its amounts Insight is about. No toolkit is in it.
#pragma once

#include <functional>
#include <optional>

#include "DepCalc/dep_calc_cont.h"
#include "compare/dep_calc_display_ctl.h"
#include "desktop/workspace/insight_subject.h"
#include "register/dep_calc_view.h"

namespace depcalc::desktop {

/// Follows the calculator's screen; the asset chosen last in the list or in a report goes before it
/// until something else of the calculator is looked at. Nothing is worked out before `subject` is
/// asked for.
class InsightFollowing {
 public:
  /// The saved values of asset `number`; nothing where there is no such asset.
  using ReadAsset = std::function<std::optional<SavedAsset>(std::int32_t number)>;

  explicit InsightFollowing(ReadAsset read) : read_(std::move(read)) {}

  /// The calculator that runs now; null while none does. It lives until the next call.
  void setCalculator(const DepCalcCont* calculator);
  /// Another screen comes up.
  void turned() { pointed_.reset(); }
  /// The user clicked on a cell. The comparison itself keeps its current cell where it was.
  void cellPointed(const Grid& grid, int row, int column) { pointed_ = {&grid, row, column}; }
  /// The user chose asset `number` in the list beside the page.
  void chooseInList(std::int32_t number);
  /// The user looked at an amount of a report; `fiscal_year` is nothing for one of no year.
  void chooseInReport(std::int32_t number, std::optional<int> fiscal_year);

  [[nodiscard]] InsightSubject subject();

 private:
  struct Cell {
    const Grid* grid = nullptr;
    int row = 0;
    int column = 0;
    bool operator==(const Cell&) const = default;
  };
  /// What of the calculator is looked at.
  struct View {
    const UserControl* screen = nullptr;
    const CalculateDep* record = nullptr;
    Cell current;
    std::optional<Cell> pointed;
    bool operator==(const View&) const = default;
  };
  struct Choice {
    InsightPlace place = InsightPlace::nothing;
    std::int32_t number = 0;
    std::optional<int> fiscal_year;
  };

  [[nodiscard]] View view() const;
  [[nodiscard]] InsightSubject ofCalculator() const;
  [[nodiscard]] InsightSubject ofComparison(const DepCalcDisplayCtl& comparison) const;
  [[nodiscard]] InsightSubject ofRegister(const Grid& table) const;
  [[nodiscard]] InsightSubject ofRecord(InsightPlace place) const;
  [[nodiscard]] InsightSubject ofSaved(const Choice& choice) const;

  ReadAsset read_;
  const DepCalcCont* calculator_ = nullptr;
  std::optional<Cell> pointed_;  ///< on the screen that shows
  std::optional<Choice> choice_;
  View seen_;  ///< when the choice was made, or later
};

}  // namespace depcalc::desktop
