// How the comparison screen calculates and shows a record.
#include "common/trapped.h"
#include "compare/dep_calc_display_ctl.h"
#include "engine/first_fiscal_year.h"
#include "engine/method.h"
#include "engine/schedule_span.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr int year_column = 0;
constexpr int last_schedule_column = static_cast<int>(scheduled_methods.size());

// Twips.
constexpr int row_height = 360;

CellKind scheduleCell(int row, int total_row) {
  if (row == 0) return CellKind::heading;
  return row == total_row ? CellKind::total : CellKind::amount;
}

/// Keeps the table from being drawn while it is half filled.
class DrawingPaused {
 public:
  explicit DrawingPaused(Grid& grid) : grid_(grid) { grid_.setRedraw(false); }
  ~DrawingPaused() { grid_.setRedraw(true); }
  DrawingPaused(const DrawingPaused&) = delete;
  DrawingPaused& operator=(const DrawingPaused&) = delete;

 private:
  Grid& grid_;
};

}  // namespace

void DepCalcDisplayCtl::Show() { Paint(); }

void DepCalcDisplayCtl::Paint() {
  trapped("DepCalcDisplay::Paint", [this] {
    if (painted_) return;
    painted_ = true;
    record_.reset();
    events_.GetCalcDep(record_);
    if (record_ == nullptr) return;
    fill();
    layOut();
  });
}

void DepCalcDisplayCtl::fill() {
  const DrawingPaused paused(DisplayTable);
  forgetEarlierFill();
  AName.setText(record_->AssetName());
  AID.setText(record_->AssetID());
  years_ = fiscalYearsSpanned(*record_);
  selectOption();
  keepPrior();
  sizeTable();
  writeHeaders();
  DoDepCalculations();
  DisplayCalcsinTable();
  PopulateDepInfo();
}

/// Where a fill ends early, the amounts of the asset before must neither show nor be saved as this
/// one's.
void DepCalcDisplayCtl::forgetEarlierFill() {
  DisplayTable.setRows(0);
  UoPTable.setText(0, 0, {});
  UoPTable.setText(0, 1, {});
  results_ = {};
}

void DepCalcDisplayCtl::keepPrior() {
  prior_method_ = record_->DepMethod();
  prior_amounts_.clear();
  for (int i = 0; i <= years_; ++i) {
    prior_amounts_.push_back(record_->DepItem(static_cast<std::int16_t>(i)));
  }
}

void DepCalcDisplayCtl::sizeTable() {
  DisplayTable.setRows(years_ + 2);
  DisplayTable.setColumns(last_schedule_column + 1);
  const int total_row = years_ + 1;
  for (int row = 0; row <= total_row; ++row) {
    DisplayTable.setRowHeight(row, row_height);
    DisplayTable.setKind(row, year_column, row == 0 ? CellKind::heading : CellKind::caption);
    for (int column = 1; column <= last_schedule_column; ++column) {
      DisplayTable.setKind(row, column, scheduleCell(row, total_row));
      DisplayTable.setAlignment(
          row, column, row == 0 ? CellAlignment::centerCenter : CellAlignment::rightCenter);
    }
  }
  markChosenColumn();
}

void DepCalcDisplayCtl::writeHeaders() {
  for (int column = 1; column <= last_schedule_column; ++column) {
    DisplayTable.setText(0, column,
                         scheduled_methods[static_cast<std::size_t>(column) - 1].method.name);
  }
  const int first_year = firstFiscalYearStrict(record_->AssetStartDate(), record_->FYEnd());
  for (int i = 0; i < years_; ++i) {
    DisplayTable.setText(i + 1, year_column, "FY" + std::to_string(first_year + i));
  }
  DisplayTable.setText(years_ + 1, year_column, "TOTAL");
  const bool has_capacity = numberFromText(record_->AssetProdCap()) != 0;
  UoPTable.setText(0, 0, has_capacity ? "Unit of Production Rate" : "");
}

void DepCalcDisplayCtl::DoDepCalculations() {
  trapped("DepCalcDisplay::DoDepCalculations", [this] { calculateAllMethods(record(), results_); });
}

void DepCalcDisplayCtl::DisplayCalcsinTable() {
  trapped("DepCalcDisplay::DisplayCalcsinTable", [this] {
    int column = year_column;
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      showSchedule(++column, results_.*scheduled.amounts);
    }
    UoPTable.setText(0, 1, formatRate(results_.rate));
  });
}

void DepCalcDisplayCtl::showSchedule(int column, const Amounts& amounts) {
  Currency total;
  for (int i = 0; i < years_; ++i) {
    if (static_cast<std::size_t>(i) >= amounts.size()) throw RuntimeError::subscriptOutOfRange();
    const Currency amount = amounts[static_cast<std::size_t>(i)];
    DisplayTable.setText(i + 1, column, formatMoney(amount));
    total += amount;
  }
  DisplayTable.setText(years_ + 1, column, formatMoney(total));
}

}  // namespace depcalc
