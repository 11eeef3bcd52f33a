// Texts from files, as they reach a terminal.
#include "values/printable_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace depcalc {
namespace {

struct Case {
  std::string text;
  std::string printed;
};

TEST(PrintableText, WritesControlCharactersOutAndLeavesAllOthers) {
  const std::vector<Case> cases = {
      {"", ""},
      {" !\"\\~", " !\"\\~"},
      {"a\nb\rc\td", "a\\nb\\rc\\td"},
      {std::string("\0\x1B[31m", 6), "\\x00\\x1B[31m"},
      {"\x1F\x7F", "\\x1F\\x7F"},
      {"\xC2\x80\xC2\x9F", "\\x80\\x9F"},
      {"\xC2\xA0\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x9A",
       "\xC2\xA0\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x9A"},
      {"a\x80\x9F\xFF", "a\x80\x9F\xFF"},  // bytes that are no UTF-8 move no cursor
  };
  for (const Case& c : cases) EXPECT_EQ(printableText(c.text), c.printed);
}

TEST(QuotedText, MarksQuotesAndIsCutBehindSixtyCharacters) {
  const std::string sixty(60, 'x');
  const std::vector<Case> cases = {
      {"", "\"\""},
      {"say \"\\\"\n", "\"say \\\"\\\\\\\"\\n\""},
      {sixty, '"' + sixty + '"'},
      {sixty + 'y', '"' + sixty + "...\""},
  };
  for (const Case& c : cases) EXPECT_EQ(quotedText(c.text), c.printed);
}

}  // namespace
}  // namespace depcalc
