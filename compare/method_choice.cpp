// What the comparison screen writes into the record.
#include "common/trapped.h"
#include "compare/dep_calc_display_ctl.h"
#include "engine/schedule_span.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

Currency amountAt(const std::vector<Currency>& amounts, std::int16_t index) {
  if (static_cast<std::size_t>(index) >= amounts.size()) throw RuntimeError::subscriptOutOfRange();
  return amounts[static_cast<std::size_t>(index)];
}

}  // namespace

void DepCalcDisplayCtl::selectOption() {
  const std::string& method = record_->DepMethod();
  OptionButton& chosen = method == method_sum_of_years_digits        ? SYDOption
                         : method == method_double_declining_balance ? DDBOption
                         : isUnitsOfProduction(method)               ? UoPOption
                                                                     : SLOption;
  for (OptionButton* option : {&SLOption, &SYDOption, &DDBOption, &UoPOption}) {
    option->setValue(option == &chosen);
  }
}

void DepCalcDisplayCtl::choose(OptionButton& option) {
  for (OptionButton* other : {&SLOption, &SYDOption, &DDBOption, &UoPOption}) {
    if (other != &option) other->setValue(false);
  }
  markChosenColumn();
  PopulateDepInfo();
}

void DepCalcDisplayCtl::PopulateDepInfo() {
  trapped("DepCalcDisplay::PopulateDepInfo", [this] {
    const std::string_view method = DDBOption.value()   ? method_double_declining_balance
                                    : SLOption.value()  ? method_straight_line
                                    : SYDOption.value() ? method_sum_of_years_digits
                                    : UoPOption.value() ? method_units_of_production
                                                        : "";
    if (!method.empty()) chooseMethod(record(), method, results_);
  });
}

void DepCalcDisplayCtl::RevertDepInfo() {
  trapped("DepCalcDisplay::RevertDepInfo", [this] {
    const std::int16_t last = lastFiscalYearSpanned(record());
    record().DepMethod(prior_method_);
    for (std::int16_t i = 0; i <= last; ++i) record().DepItem(i, amountAt(prior_amounts_, i));
  });
}

void DepCalcDisplayCtl::markChosenColumn() {
  if (DisplayTable.rows() == 0) return;
  const int column = SLOption.value() ? 1 : SYDOption.value() ? 2 : DDBOption.value() ? 3 : 0;
  DisplayTable.setRow(0);
  DisplayTable.setColumn(column);
}

}  // namespace depcalc
