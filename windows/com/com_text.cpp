#include "windows/com/com_text.h"

#include <new>

#include "values/utf8.h"

namespace depcalc {
namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void appendUnits(std::wstring& units, char32_t code) {
  if (code < 0x10000) {
    units += static_cast<wchar_t>(code);
    return;
  }
  units += static_cast<wchar_t>(0xD800 | (code - 0x10000) >> 10);
  units += static_cast<wchar_t>(0xDC00 | ((code - 0x10000) & 0x3FF));
}

}  // namespace

std::string textFromUtf16(std::wstring_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const auto unit = static_cast<char32_t>(units[i]);
    const auto next = i + 1 < units.size() ? static_cast<char32_t>(units[i + 1]) : 0;
    if (isHighSurrogate(unit) && isLowSurrogate(next)) {
      text += encodedUtf8(0x10000 + ((unit & 0x3FF) << 10 | (next & 0x3FF)));
      ++i;
    } else {
      text += encodedUtf8(unit);
    }
  }
  return text;
}

std::wstring utf16(std::string_view text) {
  std::wstring units;
  units.reserve(text.size());
  while (!text.empty()) {
    const Utf8Character character = decodedFirst(text);
    appendUnits(units, isStrayByte(character) ? replacement : character.code);
    text.remove_prefix(character.length);
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
