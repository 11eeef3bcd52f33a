#include "values/text.h"

#include <algorithm>

#include "values/utf8.h"

namespace depcalc {
namespace {

char lowerCased(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Where the character that starts at `at` ends.
std::size_t nextCharacter(std::string_view text, std::size_t at) {
  return at + decodedFirst(text.substr(at)).length;
}

std::size_t offsetOf(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  for (; count > 0 && at < text.size(); --count) at = nextCharacter(text, at);
  return at;
}

}  // namespace

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at = nextCharacter(text, at)) ++count;
  return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, offsetOf(text, count));
}

std::string_view afterCharacters(std::string_view text, std::size_t count) {
  return text.substr(offsetOf(text, count));
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowerCased(x) == lowerCased(y); });
}

std::string_view trimmed(std::string_view text) {
  // Most texts have no blanks around them, and are short.
  const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

std::string toLower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), lowerCased);
  return lower;
}

std::string padded(std::string text, std::size_t width) {
  const std::size_t length = characterCount(text);
  return text.append(width > length ? width - length : 0, ' ');
}

std::string rightAligned(const std::string& text, std::size_t width) {
  const std::size_t length = characterCount(text);
  return std::string(width > length ? width - length : 0, ' ') + text;
}

}  // namespace depcalc
