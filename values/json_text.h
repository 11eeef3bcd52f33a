// Texts as JSON writes them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// Whether `c` stands in a JSON string as it is.
constexpr bool isPlainInJson(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
}

/// Adds `text` as a JSON string, quotes included. Bytes that are no UTF-8 stay as they are.
void appendJsonString(std::string& out, std::string_view text);

/// The same into a caller's buffer of at least `jsonStringRoom`; returns the end of the string.
char* writeJsonString(std::string_view text, char* out);
constexpr std::size_t jsonStringRoom(std::string_view text) { return 6 * text.size() + 2; }

}  // namespace depcalc
