// What the comparison screen writes into the record.
#include "common/trapped.h"
#include "compare/dep_calc_display_ctl.h"
#include "values/rounding.h"
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
  OptionButton& chosen = method == "SYD"   ? SYDOption
                         : method == "DDB" ? DDBOption
                         : method == "UOP" ? UoPOption
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
    if (DDBOption.value()) {
      writeMethod("DDB", double_declining_balance_);
    } else if (SLOption.value()) {
      writeMethod("SL", straight_line_);
    } else if (SYDOption.value()) {
      writeMethod("SYD", sum_of_years_digits_);
    } else if (UoPOption.value()) {
      // Only the rate: whatever stands behind it is never read.
      record().DepMethod("UOP");
      record().DepItem(0, rate_);
    }
  });
}

/// The method stands in the record even where its amounts then cannot be written.
void DepCalcDisplayCtl::writeMethod(const char* method, const Amounts& amounts) {
  const std::int16_t last = lastIndex();
  record().DepMethod(method);
  for (std::int16_t i = 0; i <= last; ++i) record().DepItem(i, amountAt(amounts, i));
}

void DepCalcDisplayCtl::RevertDepInfo() {
  trapped("DepCalcDisplay::RevertDepInfo", [this] {
    const std::int16_t last = lastIndex();
    record().DepMethod(prior_method_);
    for (std::int16_t i = 0; i <= last; ++i) record().DepItem(i, amountAt(prior_amounts_, i));
  });
}

std::int16_t DepCalcDisplayCtl::lastIndex() const {
  return toInteger16HalfEven(record().DepRecovery() - (fullYear() ? 1 : 0));
}

void DepCalcDisplayCtl::markChosenColumn() {
  if (DisplayTable.rows() == 0) return;
  const int column = SLOption.value() ? 1 : SYDOption.value() ? 2 : DDBOption.value() ? 3 : 0;
  DisplayTable.setRow(0);
  DisplayTable.setColumn(column);
}

}  // namespace depcalc
