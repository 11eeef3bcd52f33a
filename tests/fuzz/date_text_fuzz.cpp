// Any text as a date, by itself and in the entry form's field.
#include <cstdint>
#include <string>

#include "entry/field_rules.h"
#include "importing/asset_row.h"
#include "tests/fuzz/property.h"
#include "values/date.h"

namespace depcalc {
namespace {

const Date today = Date::strict(2024, 2, 29);

void checkDate(Date date) {
  mustHold(date.year() >= 100 && date.year() <= 9999, "years have three or four digits");
  mustHold(Date::fromText(date.toText(), today) == date, "a date's text is the date");
  mustHold(Date::fromText(date.toIsoText(), today) == date, "so it is year first");
}

void checkField(std::string_view text) {
  try {
    const auto checked = placedInServiceRule({text}, today);
    const auto* accepted = std::get_if<Accepted<Date>>(&checked);
    if (accepted == nullptr) return;
    checkDate(accepted->value);
    mustHold(shownText(*accepted) == accepted->value.toText(),
             "the field shows the date it stores");
    mustHold(!refusedByDateLimit(accepted->value, today), "an accepted date is within the limit");
  } catch (const RuntimeError& error) {
    mustHold(error.number() == 9 || error.number() == 13, "too few parts, or no date at all");
  }
}

void check(std::string_view text) {
  const auto date = Date::tryFromText(text, today);
  mustHold(Date::isDate(text, today) == date.has_value(), "a date is what can be read");
  if (date) checkDate(*date);
  checkField(text);
  if (const auto end = fiscalYearEndFromText(text)) {
    mustHold(end->toIsoText().substr(5) == text, "month and day stay as written");
  }
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  depcalc::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
