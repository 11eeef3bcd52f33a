#include "values/data_text.h"

#include <algorithm>

#include "values/number_text.h"

namespace depcalc {
namespace {

/// Whether it begins with a character that makes a formula, behind any number of apostrophes.
bool wantsGuard(std::string_view text) {
  while (text.starts_with('\'')) text.remove_prefix(1);
  if (text.empty()) return false;
  const char c = text.front();
  return c == '=' || c == '+' || c == '-' || c == '@' || c == '\t' || c == '\r';
}

bool wantsQuotes(std::string_view text, char separator) {
  return std::any_of(text.begin(), text.end(), [separator](char c) {
    return c == separator || c == '"' || c == '\r' || c == '\n';
  });
}

/// Between quotes where it holds a quote, a line end or the `separator`.
std::string quotedWith(std::string_view text, char separator) {
  if (!wantsQuotes(text, separator)) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

}  // namespace

std::string csvField(std::string_view text) { return quotedWith(text, ','); }

std::string tabbedField(std::string_view text) { return quotedWith(text, '\t'); }

std::string guardedText(std::string_view text) {
  return (wantsGuard(text) ? "'" : "") + std::string(text);
}

std::string_view unguardedText(std::string_view text) {
  return text.starts_with('\'') && wantsGuard(text) ? text.substr(1) : text;
}

std::string_view CsvFields::text(std::string_view text, std::string& storage) const {
  const bool guarded = !raw_ && wantsGuard(text);
  if (!guarded && !wantsQuotes(text, ',')) return text;
  return storage = csvField(guarded ? guardedText(text) : std::string(text));
}

std::string CsvFields::number(std::string_view number) const {
  return isNumeric(number) ? csvField(number) : text(number);
}

}  // namespace depcalc
