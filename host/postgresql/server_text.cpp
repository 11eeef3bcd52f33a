#include "host/postgresql/server_text.h"

#include <charconv>

#include "values/utf8.h"

namespace depcalc {
namespace {

constexpr std::string_view byte_escape = "\\udc";
constexpr std::string_view nul_escape = "\\u0000";
constexpr std::size_t escape_size = 6;

/// Calls `each` with every part of `text` that is an escape, or none.
template <typename Each>
void forEachPart(std::string_view text, Each each) {
  while (!text.empty()) {
    std::size_t size = text.find('\\');
    if (size == 0) size = text.substr(1).starts_with('u') ? escape_size : 2;
    const std::string_view part = text.substr(0, size);
    each(part);
    text.remove_prefix(part.size());
  }
}

}  // namespace

std::string serverText(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string written;
  written.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = decodedFirst(text);
    const bool lone_surrogate = character.code >= 0xD800 && character.code <= 0xDFFF;
    if (!isStrayByte(character) && !lone_surrogate) {
      written += text.substr(0, character.length);
    } else {
      for (const char c : text.substr(0, character.length)) {
        const auto byte = static_cast<unsigned char>(c);
        written.append(byte_escape).append({digits[byte / 16], digits[byte % 16]});
      }
    }
    text.remove_prefix(character.length);
  }
  return written;
}

std::string textOfServer(std::string_view text) {
  if (text.find(byte_escape) == std::string_view::npos) return std::string(text);
  std::string read;
  forEachPart(text, [&read](std::string_view part) {
    unsigned byte = 0;
    const bool escaped = part.size() == escape_size && part.starts_with(byte_escape);
    if (escaped) std::from_chars(part.data() + 4, part.data() + 6, byte, 16);
    escaped ? read.append(1, static_cast<char>(byte)) : read.append(part);
  });
  return read;
}

std::optional<std::string> readableText(std::string_view server_text) {
  if (server_text.find(byte_escape) == std::string_view::npos &&
      server_text.find(nul_escape) == std::string_view::npos) {
    return std::nullopt;
  }
  std::string readable;
  bool differs = false;
  forEachPart(server_text, [&](std::string_view part) {
    const bool unreadable = part.starts_with(byte_escape) || part == nul_escape;
    readable += unreadable ? "\\ufffd" : part;
    differs = differs || unreadable;
  });
  return differs ? std::optional(readable) : std::nullopt;
}

}  // namespace depcalc
