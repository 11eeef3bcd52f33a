// Whole numbers as digits, written in place.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace depcalc {

/// What `writeWhole` may write behind the end of its text.
inline constexpr std::size_t digits_written_over = 7;

/// The eight digits of a number below 10^8, zeros in front: each a byte of its own from 0 to 9, the
/// first the lowest. Both halves are parted at once, then all four pairs.
constexpr std::uint64_t eightDigits(std::uint32_t number) {
  const std::uint64_t fours = number / 10'000 | std::uint64_t{number % 10'000} << 32;
  const std::uint64_t hundreds = fours * 5'243 >> 19 & 0x0000'007F'0000'007F;
  const std::uint64_t pairs = hundreds | (fours - 100 * hundreds) << 16;
  const std::uint64_t tens = pairs * 103 >> 10 & 0x000F'000F'000F'000F;
  return tens | (pairs - 10 * tens) << 8;
}

/// Digits from `eightDigits` as text, but for the first `left_out` ones.
inline char* writeDigits(char* out, std::uint64_t digits, int left_out) {
  constexpr std::uint64_t zeros = 0x3030'3030'3030'3030;
  std::uint64_t text = (digits | zeros) >> 8 * left_out;
  if constexpr (std::endian::native == std::endian::big) text = __builtin_bswap64(text);
  std::memcpy(out, &text, sizeof text);
  return out + sizeof text - left_out;
}

/// `writeWhole` for a number of more than eight digits.
char* writeLongWhole(char* out, std::uint64_t number);

/// `number` without zeros in front; returns the end of the text. The buffer needs room for
/// `digits_written_over` bytes more than the text takes.
inline char* writeWhole(char* out, std::uint64_t number) {
  if (number >= 100'000'000) return writeLongWhole(out, number);
  const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(number));
  constexpr std::uint64_t last_digit = std::uint64_t{1} << 56;  // stands even where it is 0
  return writeDigits(out, digits, std::countr_zero(digits | last_digit) / 8);
}

/// "00" to "99", one behind the other.
inline constexpr auto digit_pairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

/// A number below 10,000 as four digits, zeros in front.
inline char* writeFour(char* out, std::uint32_t number) {
  std::copy_n(&digit_pairs[2 * (number / 100)], 2, out);
  return std::copy_n(&digit_pairs[2 * (number % 100)], 2, out + 2);
}

}  // namespace depcalc
