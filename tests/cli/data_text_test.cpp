#include "values/data_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <random>

#include "importing/csv_reader.h"
#include "tests/cli/list_and_import.h"
#include "tests/support/effort.h"
#include "tests/support/text_source.h"

namespace depcalc {
namespace {

using testing_support::inLongRun;
using testing_support::ListAndImport;

/// What matters in a text, and what does not.
constexpr std::string_view alphabet = "'=+-@\t\r\n,\" a";

TEST(CsvFields, GuardsWhatASpreadsheetWouldCalculate) {
  struct Case {
    std::string_view text;
    std::string_view guarded;
  };
  for (const Case& c : std::vector<Case>{
           {"", ""},
           {"a", "a"},
           {"=1+1", "'=1+1"},
           {"+1", "'+1"},
           {"-1", "'-1"},
           {"@SUM(A1)", "'@SUM(A1)"},
           {"\t=1", "'\t=1"},
           {"\r=1", "'\r=1"},
           {"'=1", "''=1"},
           {"''\t", "'''\t"},
           {"'", "'"},
           {"''", "''"},
           {"'a=1", "'a=1"},
           {" =1", " =1"},
           {"a=1", "a=1"},
           {"1-1", "1-1"},
           {"\n=1", "\n=1"},
       }) {
    EXPECT_EQ(guardedText(c.text), c.guarded) << testing::PrintToString(c.text);
    EXPECT_EQ(unguardedText(c.guarded), c.text) << testing::PrintToString(c.guarded);
  }
}

TEST(CsvFields, LeavesNumbersAlone) {
  const CsvFields fields(false);
  for (const std::string_view number : {"-5.0000", "+5", "-1,234.00", "-1E+15", "0"}) {
    EXPECT_EQ(fields.number(number), csvField(number));
    EXPECT_EQ(fields.text(number), csvField(guardedText(number)));
  }
  EXPECT_EQ(fields.number("-5+cmd"), "'-5+cmd");
  EXPECT_EQ(fields.number("=1,2"), "\"'=1,2\"");
}

TEST(CsvFields, WritesEveryTextAsItIsForPrograms) {
  const CsvFields raw(true);
  EXPECT_EQ(raw.text("=1"), "=1");
  EXPECT_EQ(raw.text("'=1"), "'=1");
  EXPECT_EQ(raw.number("=1,\"2\""), "\"=1,\"\"2\"\"\"");
}

/// `text` written as a field of its row and read again.
std::string throughCsv(const std::string& text, bool raw) {
  const std::string row = CsvFields(raw).text(text) + ",\n";
  TextSource source(row);
  CsvReader reader(source);
  EXPECT_EQ(reader.next(), CsvReader::Outcome::record) << testing::PrintToString(row);
  const std::string_view field = reader.record().front().text;
  EXPECT_TRUE(raw || field.empty() || alphabet.substr(1, 6).find(field.front()) == field.npos)
      << testing::PrintToString(row);
  return std::string(raw ? field : unguardedText(field));
}

TEST(CsvFields, GivesBackEveryTextThatCanBeMadeOfWhatMatters) {
  const std::size_t longest = inLongRun() ? 5 : 3;
  std::vector<std::string> texts{""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string text = texts[i];
    ASSERT_EQ(throughCsv(text, false), text);
    ASSERT_EQ(throughCsv(text, true), text);
    if (text.size() == longest) continue;
    for (const char c : alphabet) texts.push_back(text + c);
  }
}

// --- Through the commands ------------------------------------------------------------------------

std::string randomText(std::mt19937& random) {
  std::string text(std::uniform_int_distribution<std::size_t>(0, 20)(random), ' ');
  std::uniform_int_distribution<std::size_t> character(0, alphabet.size() - 1);
  for (char& c : text) c = alphabet[character(random)];
  return text;
}

TEST_F(ListAndImport, GiveBackEveryRandomText) {
  const auto seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  {
    std::ofstream csv(path("texts.csv"), std::ios::binary);
    csv << "id,name,serial,department,placed_in_service,life,basis\n";
    for (int i = 0; i < (inLongRun() ? 5'000 : 500); ++i) {
      for (int column = 0; column < 4; ++column) csv << csvField(randomText(random)) << ',';
      csv << "2024-01-01,3,9\n";
    }
  }
  ASSERT_NO_FATAL_FAILURE(run({"new", path("a.company")}));
  ASSERT_NO_FATAL_FAILURE(
      run({"import", "--raw", "--allow-duplicates", path("a.company"), path("texts.csv")}));
  const std::string dump = dumpOf("a.company");
  ASSERT_NO_FATAL_FAILURE(copy("a.company", "b.company", {}));
  EXPECT_EQ(dumpOf("b.company"), dump);
  ASSERT_NO_FATAL_FAILURE(copy("a.company", "c.company", {"--raw"}));
  EXPECT_EQ(dumpOf("c.company"), dump);
}

}  // namespace
}  // namespace depcalc
