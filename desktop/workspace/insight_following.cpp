#include "desktop/workspace/insight_following.h"

#include <charconv>

#include "desktop/workspace/asset_in_view.h"
#include "engine/method.h"

namespace depcalc::desktop {
namespace {

/// "FY2026" is 2026; a total and a field are of no year.
std::optional<int> yearOf(std::string_view caption) {
  if (!caption.starts_with("FY")) return std::nullopt;
  int year = 0;
  const char* const end = caption.data() + caption.size();
  const auto [stopped, problem] = std::from_chars(caption.data() + 2, end, year);
  return problem == std::errc() && stopped == end ? std::optional(year) : std::nullopt;
}

std::optional<int> yearOfRow(const Grid& grid, int row) {
  if (row < 0 || row >= grid.rows() || grid.columns() == 0) return std::nullopt;
  return yearOf(grid.text(row, 0));
}

}  // namespace

void InsightFollowing::setCalculator(const DepCalcCont* calculator) {
  calculator_ = calculator;
  pointed_.reset();
  choice_.reset();
  seen_ = {};
}

void InsightFollowing::chooseInList(std::int32_t number) {
  choice_ = {InsightPlace::assets, number, {}};
  seen_ = view();
}

void InsightFollowing::chooseInReport(std::int32_t number, std::optional<int> fiscal_year) {
  choice_ = {InsightPlace::report, number, fiscal_year};
  seen_ = view();
}

InsightFollowing::View InsightFollowing::view() const {
  View view;
  if (calculator_ == nullptr) return view;
  view.screen = calculator_->visibleScreen();
  view.record = calculator_->CurrentRecord().get();
  view.pointed = pointed_;
  const auto current = [](const Grid& grid) { return Cell{&grid, grid.row(), grid.column()}; };
  if (const auto* const table = dynamic_cast<const DepCalcView*>(view.screen)) {
    view.current = current(table->AssetViewTable);
  } else if (const auto* const methods = dynamic_cast<const DepCalcDisplayCtl*>(view.screen)) {
    view.current = current(methods->DisplayTable);
  }
  return view;
}

InsightSubject InsightFollowing::subject() {
  const View now = view();
  if (now != seen_) choice_.reset();
  seen_ = now;
  return choice_ ? ofSaved(*choice_) : ofCalculator();
}

InsightSubject InsightFollowing::ofCalculator() const {
  if (seen_.screen == nullptr) return {};
  if (const auto* const table = dynamic_cast<const DepCalcView*>(seen_.screen)) {
    return ofRegister(table->AssetViewTable);
  }
  if (const auto* const methods = dynamic_cast<const DepCalcDisplayCtl*>(seen_.screen)) {
    return ofComparison(*methods);
  }
  return ofRecord(InsightPlace::entry);
}

InsightSubject InsightFollowing::ofComparison(const DepCalcDisplayCtl& comparison) const {
  InsightSubject subject = ofRecord(InsightPlace::comparison);
  if (subject.isNothing() || !pointed_) return subject;
  if (pointed_->grid == &comparison.UoPTable) {
    subject.method = method_units_of_production;
  } else if (pointed_->grid == &comparison.DisplayTable) {
    const int column = pointed_->column;
    if (column > 0 && column <= std::ssize(scheduled_methods)) {
      subject.method = scheduled_methods[static_cast<std::size_t>(column) - 1].method.code;
    }
    subject.fiscal_year = yearOfRow(comparison.DisplayTable, pointed_->row);
  }
  return subject;
}

InsightSubject InsightFollowing::ofRegister(const Grid& table) const {
  if (table.column() < 1) return {};
  return ofSaved({InsightPlace::assetRegister, table.column(), yearOfRow(table, table.row())});
}

InsightSubject InsightFollowing::ofRecord(InsightPlace place) const {
  if (seen_.record == nullptr) return {};
  InsightSubject subject{.place = place,
                         .asset = assetInView(*seen_.record),
                         .method = seen_.record->DepMethod(),
                         .fiscal_year = {}};
  const std::int32_t number = std::exchange(subject.asset.number, 0);
  if (const auto saved = number > 0 ? read_(number) : std::nullopt) {
    subject.asset.number = number;
    subject.asset.units = saved->units;
  }
  return subject;
}

InsightSubject InsightFollowing::ofSaved(const Choice& choice) const {
  std::optional<SavedAsset> saved = read_(choice.number);
  if (!saved) return {};
  const std::string method = saved->method;
  return {choice.place, std::move(*saved), method, choice.fiscal_year};
}

}  // namespace depcalc::desktop
