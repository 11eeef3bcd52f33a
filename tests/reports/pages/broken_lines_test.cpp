// Texts broken into lines.
#include "reports/pages/broken_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "tests/reports/pages/even_measures.h"

namespace depcalc {
namespace {

using ::testing::ElementsAreArray;

const testing::EvenMeasures measures;

std::vector<std::string> broken(std::string_view text, int letters) {
  return brokenLines(text, letters * 100, PaperFont::body, measures);
}

TEST(BrokenLines, BreaksWhereReadersExpectIt) {
  struct Case {
    std::string_view text;
    int letters;
    std::vector<std::string> lines;
  };
  for (const Case& c : std::vector<Case>{
           {"", 5, {""}},
           {"lathe", 5, {"lathe"}},
           {"delivery truck", 14, {"delivery truck"}},
           {"delivery truck", 13, {"delivery", "truck"}},
           {"TRK-014", 5, {"TRK-", "014"}},
           {"in/out", 4, {"in/", "out"}},
           {"a  b", 2, {"a", "b"}},
           {"ab   ", 2, {"ab"}},
           {"extractor", 4, {"extr", "acto", "r"}},
           {"an extractor", 4, {"an", "extr", "acto", "r"}},
           {"two\nlines", 20, {"two", "lines"}},
           {"two\r\n\nlines\n", 20, {"two", "", "lines"}},
           {"a\tb", 5, {"a b"}},
           {"a\x1B[1mb", 12, {"a\\x1B[1mb"}},
           {"e\u0301e\u0301e\u0301", 1, {"e", "\u0301e", "\u0301e", "\u0301"}},
           {"\u00E9\u00E9\u00E9", 2, {"\u00E9\u00E9", "\u00E9"}},
           {"x", 0, {"x"}},
       }) {
    if (c.text.starts_with("e\u0301")) {
      EXPECT_THAT(broken(c.text, c.letters), ElementsAreArray({"e\u0301", "e\u0301", "e\u0301"}))
          << "an accent stays with its letter, though a line has no room for both";
      continue;
    }
    EXPECT_THAT(broken(c.text, c.letters), ElementsAreArray(c.lines)) << c.text;
  }
}

std::string withoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

TEST(BrokenLines, LosesNothingAndExceedsNothing) {
  const auto seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const auto pick = [&](int from, int to) {
    return std::uniform_int_distribution<int>(from, to)(random);
  };
  const std::vector<std::string> letters{"a", "b", "c", " ", " ", "-", "/", "\u00E9", "\u4E16"};
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (int i = pick(0, 40); i > 0; --i) {
      text += letters[static_cast<std::size_t>(pick(0, static_cast<int>(letters.size()) - 1))];
    }
    const int width = pick(1, 12);
    std::string joined;
    for (const std::string& line : broken(text, width)) {
      EXPECT_LE(characterCount(line), static_cast<std::size_t>(width)) << text;
      joined += line;
    }
    EXPECT_EQ(withoutBlanks(joined), withoutBlanks(text));
  }
}

TEST(BrokenLines, ShortenedTextsSaySo) {
  const auto cut = [](std::string_view text, int letters) {
    return shortened(text, letters * 100, PaperFont::body, measures);
  };
  EXPECT_EQ(cut("Warehouse", 9), "Warehouse");
  EXPECT_EQ(cut("Warehouse", 5), "Ware\u2026");
  EXPECT_EQ(cut("two\nlines", 20), "two\u2026");
  EXPECT_EQ(cut("Warehouse", 0), "\u2026");
}

TEST(BrokenLines, TheWidestWordIsWhatStaysTogether) {
  const auto widest = [](std::string_view text) {
    return widestWord(text, PaperFont::body, measures) / 100;
  };
  EXPECT_EQ(widest(""), 0);
  EXPECT_EQ(widest("delivery truck"), 8);
  EXPECT_EQ(widest("TRK-014"), 4);
}

}  // namespace
}  // namespace depcalc
