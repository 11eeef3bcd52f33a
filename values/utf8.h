// UTF-8: which bytes make a character (The Unicode Standard, table 3-7).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// Half a character of UTF-16. It is none by itself, but texts of programs on Windows may have one.
enum class LoneSurrogates { refused, accepted };

/// Follows a text byte by byte and knows what may come next: no overlong forms, no surrogates
/// (unless accepted), nothing above U+10FFFF.
class Utf8Check {
 public:
  explicit Utf8Check(LoneSurrogates surrogates = LoneSurrogates::refused)
      : last_after_ed_(surrogates == LoneSurrogates::refused ? 0x9F : 0xBF) {}

  /// Whether `byte` may stand here. After a byte that may not, a new character begins.
  bool accepts(unsigned char byte) {
    if (missing_ == 0) return beginsCharacter(byte);
    const bool continues = byte >= lowest_ && byte <= highest_;
    missing_ = continues ? missing_ - 1 : 0;
    lowest_ = 0x80;
    highest_ = 0xBF;
    return continues;
  }

  /// Whether the last byte ended a character.
  [[nodiscard]] bool atBoundary() const { return missing_ == 0; }

 private:
  bool beginsCharacter(unsigned char lead) {
    if (lead < 0x80) return true;
    if (lead < 0xC2 || lead > 0xF4) return false;
    missing_ = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (lead == 0xE0) lowest_ = 0xA0;  // shorter forms exist
    if (lead == 0xED) highest_ = last_after_ed_;
    if (lead == 0xF0) lowest_ = 0x90;   // shorter forms exist
    if (lead == 0xF4) highest_ = 0x8F;  // beyond the last character
    return true;
  }

  unsigned char last_after_ed_;  // surrogates begin behind 9F
  int missing_ = 0;
  unsigned char lowest_ = 0x80;
  unsigned char highest_ = 0xBF;
};

/// A character and the bytes that it takes.
struct Utf8Character {
  char32_t code;
  std::size_t length;
};

/// The first character of a text that is not empty, or a lone surrogate. A byte that begins
/// neither counts as a character with its own value, which none of one byte has.
Utf8Character decodedFirst(std::string_view text);
constexpr bool isStrayByte(Utf8Character character) {
  return character.length == 1 && character.code >= 0x80;
}

/// `code`, at most U+10FFFF, as UTF-8.
std::string encodedUtf8(char32_t code);

}  // namespace depcalc
