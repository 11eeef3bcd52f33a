#include "reports/formats/xlsx/xlsx_text.h"

#include "values/utf8.h"

namespace depcalc {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

/// Bytes that are no UTF-8, surrogates, and the two characters that XML excludes besides; controls
/// the library escapes.
bool isNoXml(Utf8Character character) {
  return isStrayByte(character) || (character.code >= 0xD800 && character.code <= 0xDFFF) ||
         character.code == 0xFFFE || character.code == 0xFFFF;
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
    const Utf8Character character = decodedFirst(text);
    if (beginsWithEscape(text)) out += "_x005F";
    out += isNoXml(character) ? replacement : text.substr(0, character.length);
    text.remove_prefix(character.length);
  }
  return out;
}

}  // namespace depcalc
