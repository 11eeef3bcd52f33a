#include "values/printable_text.h"

#include "values/text.h"
#include "values/utf8.h"

namespace depcalc {
namespace {

constexpr std::size_t most_quoted_characters = 60;

std::string escaped(char32_t control) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  if (control == '\n') return "\\n";
  if (control == '\r') return "\\r";
  if (control == '\t') return "\\t";
  return {'\\', 'x', digits[control >> 4U], digits[control & 0xFU]};
}

bool isControl(Utf8Character character) {
  const char32_t code = character.code;
  return code < 0x20 || (code >= 0x7F && code < 0xA0 && !isStrayByte(character));
}

std::string escapedControls(std::string_view text, std::string_view marked) {
  std::string out;
  while (!text.empty()) {
    const Utf8Character character = decodedFirst(text);
    if (isControl(character)) {
      out += escaped(character.code);
    } else {
      if (marked.find(text.front()) != std::string_view::npos) out += '\\';
      out += text.substr(0, character.length);
    }
    text.remove_prefix(character.length);
  }
  return out;
}

}  // namespace

std::string printableText(std::string_view text) { return escapedControls(text, ""); }

std::string quotedText(std::string_view text) {
  const std::string_view beginning = firstCharacters(text, most_quoted_characters);
  const bool cut = beginning.size() < text.size();
  return '"' + escapedControls(beginning, "\"\\") + (cut ? "...\"" : "\"");
}

}  // namespace depcalc
