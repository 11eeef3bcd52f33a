#include "values/json_text.h"

namespace depcalc {
namespace {

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\'; }

void appendEscaped(std::string& out, char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') {
    out += {'\\', c};
  } else if (c == '\n') {
    out += "\\n";
  } else {
    out += {'\\', 'u', '0', '0', digits[byte >> 4U], digits[byte & 0xFU]};
  }
}

}  // namespace

void appendJsonString(std::string& out, std::string_view text) {
  out += '"';
  std::size_t from = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isPlain(text[i])) continue;
    out.append(text, from, i - from);
    appendEscaped(out, text[i]);
    from = i + 1;
  }
  out.append(text, from);
  out += '"';
}

std::string jsonString(std::string_view text) {
  std::string string;
  string.reserve(text.size() + 2);
  appendJsonString(string, text);
  return string;
}

}  // namespace depcalc
