#include "cli/data_text.h"

namespace depcalc {
namespace {

std::string jsonEscape(char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') return {'\\', c};
  if (c == '\n') return "\\n";
  return {'\\', 'u', '0', '0', digits[byte >> 4U], digits[byte & 0xFU]};
}

}  // namespace

std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string field = "\"";
  for (const char c : text) field.append(c == '"' ? 2 : 1, c);
  return field + '"';
}

std::string jsonString(std::string_view text) {
  std::string string = "\"";
  for (const char c : text) {
    const bool plain = static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
    string += plain ? std::string(1, c) : jsonEscape(c);
  }
  return string + '"';
}

}  // namespace depcalc
