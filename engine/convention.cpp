#include "engine/convention.h"

#include "values/text.h"

namespace depcalc {
namespace {

constexpr auto digits = std::to_array<std::string_view>({"0", "1", "2", "3", "4"});
static_assert(digits.size() == convention_names.size());

}  // namespace

std::string_view conventionDigit(std::string_view name) {
  for (std::size_t i = 0; i < convention_names.size(); ++i) {
    if (name == convention_names[i]) return digits[i];
  }
  return digits.front();
}

std::string_view conventionName(std::string_view digit) {
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (digit == digits[i]) return convention_names[i];
  }
  return convention_names.front();
}

std::optional<std::string_view> conventionFromFile(std::string_view text) {
  for (std::size_t i = 0; i < convention_names.size(); ++i) {
    if (text == digits[i]) return digits[i];
    if (equalIgnoringCase(text, convention_names[i])) return digits[i];
  }
  return std::nullopt;
}

}  // namespace depcalc
