#include "reports/formats/xlsx/xlsx_text.h"

#include <algorithm>

#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

/// Bytes that are no UTF-8, surrogates, and the two characters that XML excludes besides; controls
/// the library escapes.
bool isNoXml(std::string_view character) {
  if (character.size() == 1) return static_cast<unsigned char>(character[0]) >= 0x80;
  if (character.size() == 2) return static_cast<unsigned char>(character[0]) < 0xC2;
  if (character.size() == 3) {
    return (character[0] == '\xE0' && static_cast<unsigned char>(character[1]) < 0xA0) ||
           (character[0] == '\xED' && static_cast<unsigned char>(character[1]) >= 0xA0) ||
           character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
  }
  return character < "\xF0\x90\x80\x80" || character > "\xF4\x8F\xBF\xBF";
}

/// "_x0041_" and the like.
bool beginsWithEscape(std::string_view text) {
  return text.size() >= 7 && text.starts_with("_x") && text[6] == '_' &&
         text.substr(2, 4).find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

}  // namespace

std::string xlsxText(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const std::string_view character = firstCharacters(text, 1);
    if (beginsWithEscape(text)) out += "_x005F";
    out += isNoXml(character) ? replacement : character;
    text.remove_prefix(character.size());
  }
  return out;
}

}  // namespace depcalc
