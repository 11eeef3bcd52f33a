#include "values/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace depcalc {
namespace {

TEST(Utf8, DecodesTheFirstCharacter) {
  struct Case {
    std::string_view text;
    char32_t code;
    std::size_t length;
  };
  const std::vector<Case> cases = {
      {"a", 'a', 1},
      {std::string_view("\0x", 2), 0, 1},
      {"\x7F", 0x7F, 1},
      {"\xC2\x80", 0x80, 2},
      {"\xC3\xA9t", 0xE9, 2},
      {"\xDF\xBF", 0x7FF, 2},
      {"\xE0\xA0\x80", 0x800, 3},
      {"\xE2\x82\xAC!", 0x20AC, 3},
      {"\xED\x9F\xBF", 0xD7FF, 3},
      {"\xED\xA0\x80", 0xD800, 3},
      {"\xED\xBF\xBF", 0xDFFF, 3},
      {"\xEF\xBF\xBF", 0xFFFF, 3},
      {"\xF0\x90\x80\x80", 0x10000, 4},
      {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
  };
  for (const Case& each : cases) {
    const Utf8Character character = decodedFirst(each.text);
    EXPECT_EQ(character.code, each.code) << each.text;
    EXPECT_EQ(character.length, each.length) << each.text;
    EXPECT_FALSE(isStrayByte(character)) << each.text;
  }
}

TEST(Utf8, TakesAByteThatBeginsNoCharacterForItself) {
  for (const std::string_view text :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3t", "\xE2\x82", "\xE2\x82!",
        "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x9A", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xF8\x80\x80\x80\x80", "\xFF\xFE"}) {
    const Utf8Character character = decodedFirst(text);
    EXPECT_EQ(character.code, static_cast<unsigned char>(text.front())) << text;
    EXPECT_EQ(character.length, 1U) << text;
    EXPECT_TRUE(isStrayByte(character)) << text;
  }
}

TEST(Utf8, EveryCharacterComesBack) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    const std::string encoded = encodedUtf8(code);
    const Utf8Character character = decodedFirst(encoded);
    ASSERT_TRUE(character.code == code) << static_cast<std::uint32_t>(code);
    ASSERT_EQ(character.length, encoded.size());
  }
}

TEST(Utf8, FilesMayHaveEveryCharacterButLoneSurrogates) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    Utf8Check check;
    bool accepted = true;
    for (const char c : encodedUtf8(code)) accepted &= check.accepts(static_cast<unsigned char>(c));
    ASSERT_EQ(accepted && check.atBoundary(), code < 0xD800 || code >= 0xE000)
        << static_cast<std::uint32_t>(code);
  }
}

}  // namespace
}  // namespace depcalc
