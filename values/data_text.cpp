#include "values/data_text.h"

#include "values/number_text.h"

namespace depcalc {
namespace {

/// Whether it begins with a character that makes a formula, behind any number of apostrophes.
bool wantsGuard(std::string_view text) {
  constexpr std::string_view formula_beginnings = "=+-@\t\r";
  const std::size_t at = text.find_first_not_of('\'');
  return at != std::string_view::npos &&
         formula_beginnings.find(text[at]) != std::string_view::npos;
}

/// Between quotes where it holds one of the characters `special`.
std::string quotedWith(std::string_view text, std::string_view special) {
  if (text.find_first_of(special) == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

}  // namespace

std::string csvField(std::string_view text) { return quotedWith(text, ",\"\r\n"); }

std::string tabbedField(std::string_view text) { return quotedWith(text, "\t\"\r\n"); }

std::string guardedText(std::string_view text) {
  return (wantsGuard(text) ? "'" : "") + std::string(text);
}

std::string_view unguardedText(std::string_view text) {
  return text.starts_with('\'') && wantsGuard(text) ? text.substr(1) : text;
}

std::string CsvFields::number(std::string_view number) const {
  return isNumeric(number) ? csvField(number) : text(number);
}

}  // namespace depcalc
