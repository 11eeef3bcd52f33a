#include "values/printable_text.h"

#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::size_t most_quoted_characters = 60;

std::string escaped(unsigned char control) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  if (control == '\n') return "\\n";
  if (control == '\r') return "\\r";
  if (control == '\t') return "\\t";
  return {'\\', 'x', digits[control >> 4U], digits[control & 0xFU]};
}

/// Whether U+0080 to U+009F, control characters too, come first: C2 80 to C2 9F in UTF-8.
bool beginsWithHighControl(std::string_view text) {
  return text.size() > 1 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0;
}

std::string escapedControls(std::string_view text, std::string_view marked) {
  std::string out;
  for (; !text.empty(); text.remove_prefix(1)) {
    const bool high = beginsWithHighControl(text);
    if (high) text.remove_prefix(1);
    const auto byte = static_cast<unsigned char>(text.front());
    if (high || byte < 0x20 || byte == 0x7F) {
      out += escaped(byte);
    } else {
      if (marked.find(text.front()) != std::string_view::npos) out += '\\';
      out += text.front();
    }
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
