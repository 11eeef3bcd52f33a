#include "values/utf8.h"

namespace depcalc {
namespace {

unsigned char byteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

/// The bits that the bytes of a well-formed sequence carry.
char32_t codeOf(std::string_view sequence) {
  const bool alone = sequence.size() == 1;
  char32_t code = byteAt(sequence, 0) & (alone ? 0x7FU : 0x7FU >> sequence.size());
  for (std::size_t i = 1; i < sequence.size(); ++i)
    code = code << 6 | (byteAt(sequence, i) & 0x3FU);
  return code;
}

}  // namespace

Utf8Character decodedFirst(std::string_view text) {
  Utf8Check check(LoneSurrogates::accepted);
  for (std::size_t i = 0; i < text.size() && check.accepts(byteAt(text, i)); ++i) {
    if (check.atBoundary()) return {codeOf(text.substr(0, i + 1)), i + 1};
  }
  return {byteAt(text, 0), 1};
}

std::string encodedUtf8(char32_t code) {
  const auto tail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) return {static_cast<char>(code)};
  if (code < 0x800) return {static_cast<char>(0xC0 | code >> 6), tail(0)};
  if (code < 0x10000) return {static_cast<char>(0xE0 | code >> 12), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | code >> 18), tail(12), tail(6), tail(0)};
}

}  // namespace depcalc
