// Numbers written in place are what the library writes.
#include "values/digit_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace depcalc {
namespace {

constexpr char untouched = '?';

/// The text of `number`; fails where anything but what may be written over was.
std::string written(std::uint64_t number) {
  std::array<char, 64> buffer;
  buffer.fill(untouched);
  char* const end = writeWhole(buffer.data(), number);
  for (std::size_t at = static_cast<std::size_t>(end - buffer.data()) + digits_written_over;
       at < buffer.size(); ++at) {
    EXPECT_EQ(buffer[at], untouched) << number << " reaches too far";
  }
  return {buffer.data(), end};
}

TEST(DigitText, WritesEveryNumberOfFourDigitsInEitherHalf) {
  for (std::uint32_t number = 0; number < 10'000; ++number) {
    std::array<char, 4> four;
    writeFour(four.data(), number);
    const std::string padded = std::to_string(10'000 + number).substr(1);
    ASSERT_EQ(std::string_view(four.data(), four.size()), padded);
    ASSERT_EQ(written(number), std::to_string(number));
    ASSERT_EQ(written(number * 10'000), std::to_string(number * 10'000));
    ASSERT_EQ(written(12'340'000 + number), "1234" + padded);
    ASSERT_EQ(written(1'234'0000'0000 + number), "12340000" + padded);
  }
}

TEST(DigitText, WritesWhereTheNumberOfDigitsChanges) {
  std::uint64_t power = 1;
  for (int digits = 1; digits < 20; ++digits, power *= 10) {
    for (const std::uint64_t number : {power - 1, power, power + 1}) {
      ASSERT_EQ(written(number), std::to_string(number));
    }
  }
  EXPECT_EQ(written(UINT64_MAX), "18446744073709551615");
}

TEST(DigitText, WritesAnyNumber) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    const std::uint64_t number = random() >> random() % 64;
    ASSERT_EQ(written(number), std::to_string(number));
  }
}

}  // namespace
}  // namespace depcalc
