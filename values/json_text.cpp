#include "values/json_text.h"

#include <array>

namespace depcalc {
namespace {

constexpr std::size_t longest_escape = 6;
static_assert(jsonStringRoom("x") == longest_escape + 2);

char* writeEscaped(char c, char* out) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(c);
  *out++ = '\\';
  if (c == '"' || c == '\\') {
    *out++ = c;
  } else if (c == '\n') {
    *out++ = 'n';
  } else {
    for (const char sign : {'u', '0', '0', digits[byte >> 4U], digits[byte & 0xFU]}) *out++ = sign;
  }
  return out;
}

}  // namespace

void appendJsonString(std::string& out, std::string_view text) {
  out += '"';
  std::size_t from = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isPlainInJson(text[i])) continue;
    out.append(text, from, i - from);
    std::array<char, longest_escape> escape;
    out.append(escape.data(), writeEscaped(text[i], escape.data()));
    from = i + 1;
  }
  out.append(text, from);
  out += '"';
}

char* writeJsonString(std::string_view text, char* out) {
  *out++ = '"';
  for (const char c : text) {
    if (isPlainInJson(c)) {
      *out++ = c;
    } else {
      out = writeEscaped(c, out);
    }
  }
  *out++ = '"';
  return out;
}

}  // namespace depcalc
