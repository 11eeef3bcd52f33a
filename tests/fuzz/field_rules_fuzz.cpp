// Any text in any field of the entry form: what is accepted is within the limits, and shown and
// entered again it stays what it is. The input is a field's text, then, behind a line end, the
// text of the field it is compared with.
#include <cstdint>
#include <string>

#include "engine/convention.h"
#include "entry/field_rules.h"
#include "tests/fuzz/property.h"
#include "values/number_text.h"
#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {
namespace {

const Date today = Date::strict(2024, 2, 29);
const Currency ten_million = Currency::fromText("10000000");

/// What a rule accepts; nothing when it refuses or cannot read a text.
template <typename Rule>
auto accepted(Rule rule) {
  using Checked = decltype(rule());
  using Kept = std::variant_alternative_t<0, Checked>;
  try {
    const Checked checked = rule();
    const auto* kept = std::get_if<Kept>(&checked);
    return kept != nullptr ? std::optional<Kept>(*kept) : std::nullopt;
  } catch (const RuntimeError& error) {
    const int number = error.number();
    mustHold(number == 5 || number == 6 || number == 9 || number == 13, "errors are expected ones");
    return std::optional<Kept>();
  }
}

template <typename Value, typename Rule>
void mustStay(const Accepted<Value>& kept, Rule rule) {
  const std::string shown = shownText(kept);
  const auto again = accepted([&] { return rule(shown); });
  mustHold(again.has_value(), "what is shown is accepted again");
  mustHold(again->value == kept.value && shownText(*again) == shown, "and stays what it is");
}

void checkDate(const std::string& text) {
  const auto rule = [](const std::string& s, bool changed) {
    return placedInServiceRule({s, changed}, today);
  };
  const auto date = accepted([&] { return rule(text, true); });
  if (!date) return;
  mustHold(date->value >= Date::strict(1974, 2, 28), "no date more than 50 years ago");
  mustHold(date->value <= Date::strict(2074, 2, 28), "no date more than 50 years from today");
  mustStay(*date, [&](const std::string& s) { return rule(s, true); });
  mustStay(*date, [&](const std::string& s) { return rule(s, false); });
}

void checkLife(const std::string& text) {
  const auto rule = [](const std::string& s) { return usefulLifeRule({s}); };
  const auto life = accepted([&] { return rule(text); });
  if (!life) return;
  mustHold(life->blank || (life->value >= 1 && life->value <= 50), "a life has 1 to 50 years");
  mustHold(life->value == static_cast<int>(life->value), "in whole years");
  mustStay(*life, rule);
}

void checkAmounts(const std::string& text, const std::string& other) {
  const auto basis_rule = [&](const std::string& s) { return basisRule({s}, other); };
  const auto salvage_rule = [&](const std::string& s) { return salvageRule({s}, other); };
  const auto basis = accepted([&] { return basis_rule(text); });
  if (basis && basis->value != Currency()) {
    mustHold(basis->value > Currency() && basis->value < ten_million, "a basis has its bounds");
    mustHold(basis->value.ticks() % 100 == 0, "in whole cents");
    mustStay(*basis, [](const std::string& s) { return basisRule({s, false}, ""); });
  }
  const auto salvage = accepted([&] { return salvage_rule(text); });
  if (salvage) {
    mustHold(salvage->value >= Currency() && salvage->value < ten_million, "and a salvage value");
    mustHold(salvage->value.ticks() % 100 == 0, "in whole cents");
    mustStay(*salvage, [](const std::string& s) { return salvageRule({s, false}, ""); });
  }
  // Alone, a text that is a basis is a salvage value as well.
  const bool as_basis = accepted([&] { return basisRule({text}, ""); }).has_value();
  const bool as_salvage = accepted([&] { return salvageRule({text}, ""); }).has_value();
  mustHold(!as_basis || as_salvage, "a basis is a possible salvage value");
}

void checkCapacity(const std::string& text) {
  const auto rule = [](const std::string& s) { return productionCapacityRule({s}); };
  const auto units = accepted([&] { return rule(text); });
  if (!units || units->blank) return;
  mustHold(numberFromText(units->value) >= 0, "a capacity is not negative");
  mustStay(*units, rule);
}

void checkTyping(const std::string& text) {
  const bool refused = refusedWhileTyping(NumericField::basis, text).has_value();
  mustHold(refused == (!text.empty() && !isNumeric(text)), "only numbers can be typed");
  const KeyAnswer key = limitedKey(text, U'x');
  mustHold(key.discard == (characterCount(text) >= most_text_characters), "20 characters");
  mustHold(conventionFromFile(conventionName(text)) == conventionDigit(conventionName(text)),
           "items have their digit");
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t line_end = input.find('\n');
  const std::string text = input.substr(0, line_end);
  const std::string other = line_end == std::string::npos ? "" : input.substr(line_end + 1);
  depcalc::checkDate(text);
  depcalc::checkLife(text);
  depcalc::checkAmounts(text, other);
  depcalc::checkCapacity(text);
  depcalc::checkTyping(text);
  return 0;
}
