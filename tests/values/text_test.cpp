#include "values/text.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "values/html_text.h"
#include "values/json_text.h"

namespace depcalc {
namespace {

TEST(Text, CountsCharactersNotBytes) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("TRK-014"), 7U);
  EXPECT_EQ(characterCount("caf\xC3\xA9"), 4U);
  EXPECT_EQ(characterCount("\xE2\x82\xAC\xF0\x9F\x9A\x9A"), 2U);
}

TEST(Text, CountsEachByteOfABrokenSequence) {
  EXPECT_EQ(characterCount("\xC3"), 1U);
  EXPECT_EQ(characterCount("\xE2\x82"), 2U);
  EXPECT_EQ(characterCount("\xFF\xFE!"), 3U);
  EXPECT_EQ(characterCount("\xF8\x80\x80\x80"), 4U);
  EXPECT_EQ(characterCount(std::string_view("\xE2\x82\xAC", 2)), 2U);  // cut short by its view
}

TEST(Text, IsFilledUpToItsWidthAndNeverCut) {
  EXPECT_EQ(padded("\xC3\xA9t", 4), "\xC3\xA9t  ");
  EXPECT_EQ(rightAligned("\xC3\xA9t", 4), "  \xC3\xA9t");
  for (const std::size_t width : {0U, 1U, 2U}) {
    EXPECT_EQ(padded("\xC3\xA9t", width), "\xC3\xA9t");
    EXPECT_EQ(rightAligned("\xC3\xA9t", width), "\xC3\xA9t");
  }
}

TEST(Text, SplitsBetweenCharacters) {
  const std::string text = "\xC3\xA9t\xC3\xA9";
  EXPECT_EQ(firstCharacters(text, 2), "\xC3\xA9t");
  EXPECT_EQ(afterCharacters(text, 2), "\xC3\xA9");
  EXPECT_EQ(firstCharacters(text, 9), text);
  EXPECT_EQ(afterCharacters(text, 9), "");
}

TEST(Text, IgnoresTheCaseOfLatinLettersOnly) {
  EXPECT_TRUE(equalIgnoringCase("FYEND", "FYEnd"));
  EXPECT_FALSE(equalIgnoringCase("FYEND", "FYEnds"));
  EXPECT_FALSE(equalIgnoringCase("[", "{"));
}

TEST(Text, TrimsBlanksAtTheEnds) {
  EXPECT_EQ(trimmed("\t a b  "), "a b");
  EXPECT_EQ(trimmed("  "), "");
}

TEST(JsonText, EscapesWhatJsonCannotHold) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"plain \xC3\xA9", "\"plain \xC3\xA9\""},
      {"a\"b\\c\nd\te", "\"a\\\"b\\\\c\\nd\\u0009e\""},
      {std::string("\0", 1), "\"\\u0000\""},
      {"", "\"\""},
  };
  for (const auto& [text, json] : cases) {
    std::string appended;
    appendJsonString(appended, text);
    EXPECT_EQ(appended, json);
    std::vector<char> room(jsonStringRoom(text));
    EXPECT_EQ(std::string(room.data(), writeJsonString(text, room.data())), json);
  }
}

}  // namespace
}  // namespace depcalc
