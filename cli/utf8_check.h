// Well-formed UTF-8, byte by byte.
#pragma once

namespace depcalc {

/// Follows a text byte by byte and knows what may come next: no overlong forms, no surrogates,
/// nothing above U+10FFFF (The Unicode Standard, table 3-7).
class Utf8Check {
 public:
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
    if (lead == 0xE0) lowest_ = 0xA0;   // shorter forms exist
    if (lead == 0xED) highest_ = 0x9F;  // surrogates
    if (lead == 0xF0) lowest_ = 0x90;   // shorter forms exist
    if (lead == 0xF4) highest_ = 0x8F;  // beyond the last character
    return true;
  }

  int missing_ = 0;
  unsigned char lowest_ = 0x80;
  unsigned char highest_ = 0xBF;
};

}  // namespace depcalc
