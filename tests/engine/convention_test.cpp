// The convention as name, as digit and as a data file may write it.
#include "engine/convention.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace depcalc {
namespace {

TEST(Convention, IsKeptAsItsDigit) {
  const std::pair<std::string, std::string> items[] = {{"Full Year", "0"},
                                                       {"Half Year", "1"},
                                                       {"Full Month", "2"},
                                                       {"Half Month", "3"},
                                                       {"Actual Days", "4"}};
  ASSERT_EQ(std::size(items), convention_names.size());
  for (std::size_t i = 0; i < std::size(items); ++i) {
    EXPECT_EQ(convention_names[i], items[i].first);
    EXPECT_EQ(conventionDigit(items[i].first), items[i].second);
    EXPECT_EQ(conventionName(items[i].second), items[i].first);
  }
  for (const std::string text : {"", "half year", "HALF YEAR", "Half Year ", "1"}) {
    EXPECT_EQ(conventionDigit(text), "0") << text;
  }
  for (const std::string text : {"", "5", "-1", "01", "Half Year"}) {
    EXPECT_EQ(conventionName(text), "Full Year") << text;
  }
}

TEST(Convention, InADataFileIsADigitOrANameInAnyCase) {
  const std::pair<std::string, std::string> cases[] = {
      {"0", "0"},          {"4", "4"},          {"Full Year", "0"},  {"half year", "1"},
      {"FULL MONTH", "2"}, {"Half Month", "3"}, {"actual days", "4"}};
  for (const auto& [text, digit] : cases) EXPECT_EQ(conventionFromFile(text), digit) << text;
  for (const std::string text : {"", "5", "00", "Full", "Half  Year", "FullYear"}) {
    EXPECT_EQ(conventionFromFile(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace depcalc
