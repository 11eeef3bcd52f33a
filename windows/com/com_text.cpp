#include "windows/com/com_text.h"

#include <array>
#include <cstdint>
#include <new>

namespace depcalc {
namespace {

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

char byte(char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); }

void appendContinued(std::string& text, char32_t code, int continuations) {
  for (int shift = 6 * (continuations - 1); shift >= 0; shift -= 6)
    text += byte(0x80 | (code >> shift & 0x3F));
}

void appendCode(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += byte(code);
  } else if (code < 0x800) {
    text += byte(0xC0 | code >> 6);
    appendContinued(text, code, 1);
  } else if (code < 0x10000) {
    text += byte(0xE0 | code >> 12);
    appendContinued(text, code, 2);
  } else {
    text += byte(0xF0 | code >> 18);
    appendContinued(text, code, 3);
  }
}

void appendUnits(std::wstring& units, char32_t code) {
  if (code < 0x10000) {
    units += static_cast<wchar_t>(code);
    return;
  }
  units += static_cast<wchar_t>(0xD800 | (code - 0x10000) >> 10);
  units += static_cast<wchar_t>(0xDC00 | ((code - 0x10000) & 0x3FF));
}

/// A code point and the number of its bytes.
struct Decoded {
  char32_t code;
  std::size_t length;
};

constexpr Decoded no_sequence{0xFFFD, 1};

/// How a first byte begins: the bits of it that count, what follows, the smallest code so written.
struct Lead {
  char32_t bits;
  std::size_t length;
  char32_t smallest;
};

Lead leadOf(unsigned char first) {
  if (first < 0x80) return {first, 1, 0};
  if (first >= 0xC2 && first < 0xE0) return {first & 0x1FU, 2, 0x80};
  if (first >= 0xE0 && first < 0xF0) return {first & 0x0FU, 3, 0x800};
  if (first >= 0xF0 && first < 0xF5) return {first & 0x07U, 4, 0x10000};
  return {0, 0, 0};
}

Decoded decode(std::string_view text) {
  const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
  if (lead.length == 0 || lead.length > text.size()) return no_sequence;
  char32_t code = lead.bits;
  for (const char next : text.substr(1, lead.length - 1)) {
    const auto bits = static_cast<unsigned char>(next);
    if ((bits & 0xC0) != 0x80) return no_sequence;
    code = code << 6 | (bits & 0x3F);
  }
  if (code < lead.smallest || code > 0x10FFFF) return no_sequence;
  return {code, lead.length};
}

}  // namespace

std::string textFromUtf16(std::wstring_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto unit = static_cast<char32_t>(units[i]);
    const auto next = i + 1 < units.size() ? static_cast<char32_t>(units[i + 1]) : 0;
    if (isHighSurrogate(unit) && isLowSurrogate(next)) {
      appendCode(text, 0x10000 + ((unit & 0x3FF) << 10 | (next & 0x3FF)));
      ++i;
    } else {
      appendCode(text, unit);
    }
  }
  return text;
}

std::wstring utf16(std::string_view text) {
  std::wstring units;
  units.reserve(text.size());
  while (!text.empty()) {
    const Decoded decoded = decode(text);
    appendUnits(units, decoded.code);
    text.remove_prefix(decoded.length);
  }
  return units;
}

std::string textFromBstr(BSTR text) {
  return text == nullptr ? std::string() : textFromUtf16({text, SysStringLen(text)});
}

BSTR newBstr(std::string_view text) {
  const std::wstring units = utf16(text);
  BSTR made = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

}  // namespace depcalc
