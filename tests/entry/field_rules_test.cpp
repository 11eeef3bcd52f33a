#include "entry/field_rules.h"

#include <gtest/gtest.h>

#include <set>

#include "values/runtime_error.h"

namespace depcalc {
namespace {

using enum FieldMessage;

const Date today = Date::strict(2026, 6, 15);

std::string told(FieldMessage message) {
  return std::string(messageOf(message).title) + ": " + std::string(messageOf(message).text);
}
std::string stored(Date value) { return value.toIsoText(); }
std::string stored(Currency value) { return value.toFixed4(); }
std::string stored(double value) { return std::to_string(static_cast<int>(value)); }
std::string stored(const std::string& value) { return value; }

/// What a rule answers in a form that a table of cases can hold: "shown|stored", the refusal's
/// title and text, or the run-time error's number.
template <typename Rule>
std::string answer(Rule rule) {
  try {
    const auto checked = rule();
    if (const auto* refusal = std::get_if<Rejected>(&checked)) return told(refusal->message);
    const auto& accepted = std::get<0>(checked);
    return shownText(accepted) + "|" + stored(accepted.value);
  } catch (const RuntimeError& error) {
    return "error " + std::to_string(error.number());
  }
}

struct Case {
  std::string text;
  std::string expected;
};

// Every message, a second time, so that a slip in the table shows.
const std::string no_date = "Placed-in-service Date: Please enter a valid date.";
const std::string too_late =
    "Placed-in-service Date: Please enter a date less than 50 years from today.";
const std::string too_early = "Placed-in-service Date: Please enter a date less than 50 years ago.";
const std::string no_life = "Useful Life: Please enter a valid number.";
const std::string life_below_one = "Useful Life: The useful life must be a positive number.";
const std::string life_above_50 = "Useful Life: Please enter a number less than or equal to 50.";
const std::string no_basis = "Basis: Please enter a valid number.";
const std::string basis_minus = "Basis: The basis must be a positive number.";
const std::string basis_nothing = "Basis: The basis must be greater than 0.";
const std::string basis_huge = "Basis: The basis must be less than 10,000,000.";
const std::string basis_under_salvage =
    "Basis: The basis of the asset must be greater than the salvage value.";
const std::string no_salvage = "Salvage Value: Please enter a valid number.";
const std::string salvage_minus = "Salvage Value: The salvage value must be a positive number.";
const std::string salvage_huge = "Salvage Value: The salvage value must be less than 10,000,000.";
const std::string salvage_over_basis =
    "Salvage Value: The salvage value of the asset must be less than the basis.";
const std::string no_capacity = "Production Capacity: Please enter a valid number.";
const std::string capacity_minus =
    "Production Capacity: The production capacity must be a positive number.";

TEST(FieldMessages, AreWordForWord) {
  const std::string expected[] = {no_date,
                                  too_late,
                                  too_early,
                                  no_life,
                                  life_below_one,
                                  life_above_50,
                                  no_basis,
                                  basis_minus,
                                  basis_nothing,
                                  basis_huge,
                                  basis_under_salvage,
                                  no_salvage,
                                  salvage_minus,
                                  salvage_huge,
                                  salvage_over_basis,
                                  no_capacity,
                                  capacity_minus};
  ASSERT_EQ(std::size(expected), field_messages.size());
  for (std::size_t i = 0; i < field_messages.size(); ++i) {
    EXPECT_EQ(told(static_cast<FieldMessage>(i)), expected[i]);
  }
}

// --- Placed-in-service date ---------------------------------------------------------------

std::string dateAnswer(std::string_view text, bool changed = true,
                       DateLimit limit = DateLimit::fifty_years) {
  return answer([&] { return placedInServiceRule({text, changed}, today, limit); });
}

TEST(PlacedInServiceDate, ReadsEveryWriting) {
  const Case cases[] = {
      // A date as it stands.
      {"3/15/2020", "03/15/2020|2020-03-15"},
      {"3-15-20", "03/15/2020|2020-03-15"},
      {"3/5/20", "03/05/2020|2020-03-05"},
      {"3/15", "03/15/2026|2026-03-15"},
      {"2020-03-15", "03/15/2020|2020-03-15"},
      {"March 15, 2020", "03/15/2020|2020-03-15"},
      {"15-Mar-2020", "03/15/2020|2020-03-15"},
      {" 3/15/2020 ", "03/15/2020|2020-03-15"},
      {"3/15/2020 10:30 AM", "03/15/2020|2020-03-15"},
      {"2/29/2024", "02/29/2024|2024-02-29"},
      // Dots are slashes.
      {"3.15.2020", "03/15/2020|2020-03-15"},
      {"03.15.2020", "03/15/2020|2020-03-15"},
      {"3.15.20", "03/15/2020|2020-03-15"},
      {"3.15", "03/15/2026|2026-03-15"},
      {"03.15", "03/15/2026|2026-03-15"},
      {"03.15.", "03/15/2026|2026-03-15"},
      {"03/15/", "03/15/2026|2026-03-15"},
      {"3.15/2020", "03/15/2020|2020-03-15"},
      // Digits alone.
      {"03152020", "03/15/2020|2020-03-15"},
      {"01052020", "01/05/2020|2020-01-05"},
      {"031520", "03/15/2020|2020-03-15"},
      {"03152", "03/15/2002|2002-03-15"},
      {"0315", "03/15/2026|2026-03-15"},
      {"0105", "01/05/2026|2026-01-05"},
  };
  for (const auto& c : cases) EXPECT_EQ(dateAnswer(c.text), c.expected) << c.text;
}

TEST(PlacedInServiceDate, RefusesWhatIsNoDate) {
  const std::string texts[] = {
      "13/5/2020",  // day and month are never swapped
      "2/30/2020",  "2/29/2023",
      "March",  // a month's name alone
      "315",    // 31/5/
      "3",          "   ",        "1332020",
      "3.5.20",  // six characters with the slashes: this year is put behind them
      "3.5.2",
      "3/15/",  // five characters: a slash and this year are put behind them
      "3.15.2020.", "3/15/2020/", ".",       "/", "caf\xC3\xA9", "12:30",
  };
  for (const auto& text : texts) EXPECT_EQ(dateAnswer(text), no_date) << text;
}

TEST(PlacedInServiceDate, FailsOnATextWithFewerThanThreeParts) {
  for (const std::string text : {"3/152020", "3.152020", "Mar. 15, 2020", "1234567/", ".3152020"}) {
    EXPECT_EQ(dateAnswer(text), "error 9") << text;
  }
  // Lengths count characters: five of them get a slash, and so a third part.
  EXPECT_EQ(dateAnswer("\xC3\xA9/abc"), no_date);
  EXPECT_EQ(dateAnswer("\xC3\xA9/abcd"), "error 9");
}

TEST(PlacedInServiceDate, FailsToReadAnEmptyText) {
  EXPECT_EQ(dateAnswer(""), "error 13");
  EXPECT_EQ(dateAnswer("", false), "error 13");
}

TEST(PlacedInServiceDate, IsNotNormalisedWhileUnchanged) {
  EXPECT_EQ(dateAnswer("03/15/2020", false), "03/15/2020|2020-03-15");
  EXPECT_EQ(dateAnswer("3.15.2020", false), "error 13");
  EXPECT_EQ(dateAnswer("0315", false), "error 13");
}

TEST(PlacedInServiceDate, StaysWithinFiftyYearsOfToday) {
  const Case cases[] = {
      {"06/15/2076", "06/15/2076|2076-06-15"},
      {"06/16/2076", too_late},
      {"06/15/1976", "06/15/1976|1976-06-15"},
      {"06/14/1976", too_early},
      {"06142076", "06/14/2076|2076-06-14"},
      {"1.1.2077", too_late},
      {"1/1/9999", too_late},
      {"1/1/100", too_early},
  };
  for (const auto& c : cases) EXPECT_EQ(dateAnswer(c.text), c.expected) << c.text;
  // The rule holds for a text that nobody has touched, too.
  EXPECT_EQ(dateAnswer("06/16/2076", false), too_late);
  EXPECT_EQ(dateAnswer("06/14/1976", false), too_early);
}

TEST(PlacedInServiceDate, CanDoWithoutTheLimit) {
  EXPECT_EQ(dateAnswer("1/1/9999", true, DateLimit::none), "01/01/9999|9999-01-01");
  EXPECT_EQ(dateAnswer("1/1/100", true, DateLimit::none), "01/01/0100|0100-01-01");
}

TEST(PlacedInServiceDate, CountsFiftyYearsFromALeapDay) {
  const Date leap_day = Date::strict(2024, 2, 29);
  EXPECT_EQ(refusedByDateLimit(Date::strict(2074, 2, 28), leap_day), std::nullopt);
  EXPECT_EQ(refusedByDateLimit(Date::strict(2074, 3, 1), leap_day), Rejected{date_too_late});
  EXPECT_EQ(refusedByDateLimit(Date::strict(1974, 2, 28), leap_day), std::nullopt);
  EXPECT_EQ(refusedByDateLimit(Date::strict(1974, 2, 27), leap_day), Rejected{date_too_early});
}

std::string twoDigits(int number) { return {char('0' + number / 10), char('0' + number % 10)}; }

/// Every way of writing a date that reads back as that very date.
std::vector<std::string> writings(Date date) {
  const std::string month = std::to_string(date.month());
  const std::string day = std::to_string(date.day());
  const std::string mm = twoDigits(date.month());
  const std::string dd = twoDigits(date.day());
  const std::string yyyy = std::to_string(date.year());
  const std::string name = date.monthName();
  const std::string abbreviated = name.substr(0, 3);
  std::vector<std::string> texts{
      mm + "/" + dd + "/" + yyyy,         month + "/" + day + "/" + yyyy,
      mm + "-" + dd + "-" + yyyy,         yyyy + "-" + mm + "-" + dd,
      yyyy + "/" + month + "/" + day,     mm + "." + dd + "." + yyyy,
      month + "." + day + "." + yyyy,     mm + dd + yyyy,
      name + " " + day + ", " + yyyy,     day + "-" + abbreviated + "-" + yyyy,
      day + " " + name + " " + yyyy,      mm + "/" + dd + "/" + yyyy + " 00:00",
      abbreviated + "-" + dd + "-" + yyyy};
  if (date.year() >= 1930 && date.year() < 2030) {
    const std::string yy = twoDigits(date.year() % 100);
    texts.insert(texts.end(),
                 {month + "/" + day + "/" + yy, mm + dd + yy, mm + "." + dd + "." + yy});
  }
  if (date.year() == today.year()) {
    texts.insert(texts.end(), {month + "/" + day, mm + dd, mm + "." + dd, month + "." + day,
                               mm + "/" + dd + "/", mm + "." + dd + ".", name + " " + day});
  }
  return texts;
}

TEST(PlacedInServiceDate, ReadsEveryDateOfACenturyInEveryWriting) {
  const Date last = today.plusYears(50);
  for (Date date = today.plusYears(-50); date <= last; date = date.plusDays(1)) {
    const std::string expected = date.toText() + "|" + date.toIsoText();
    for (const auto& text : writings(date)) {
      ASSERT_EQ(dateAnswer(text), expected) << text;
    }
    ASSERT_EQ(dateAnswer(date.toText(), false), expected);
  }
}

// --- Useful life ---------------------------------------------------------------------------

TEST(UsefulLife, IsAWholeNumberFromOneToFifty) {
  const Case cases[] = {
      {"5", "5|5"},
      {"1", "1|1"},
      {"50", "50|50"},
      {"2.5", "2|2"},
      {"3.5", "4|4"},
      {"1.4", "1|1"},
      {"49.5", "50|50"},
      {"48.5", "48|48"},
      {" 7 ", "7|7"},
      {"+7", "7|7"},
      {"5e1", "50|50"},
      {"0,0,5", "5|5"},
      {"", "|0"},
      {"0", life_below_one},
      {"-3", life_below_one},
      {"0.6", life_below_one},
      {"0.99999", life_below_one},
      {"50.01", life_above_50},
      {"50.4", life_above_50},
      {"51", life_above_50},
      {"1E300", life_above_50},
      {"five", no_life},
      {"-", no_life},
      {".", no_life},
      {"$5", no_life},
      {"1E999", no_life},
      {" ", no_life},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(answer([&] { return usefulLifeRule({c.text}); }), c.expected) << c.text;
  }
}

TEST(UsefulLife, IsRoundedAndStoredWhileUnchanged) {
  EXPECT_EQ(answer([] { return usefulLifeRule({"5", false}); }), "5|5");
  EXPECT_EQ(answer([] { return usefulLifeRule({"60", false}); }), "60|60");
  EXPECT_EQ(answer([] { return usefulLifeRule({"", false}); }), "|0");
  EXPECT_EQ(answer([] { return usefulLifeRule({"five", false}); }), "error 13");
}

// --- Basis and salvage value ----------------------------------------------------------------

struct AmountCase {
  std::string text;
  std::string other;  ///< the salvage value's text for the basis, and the other way round
  std::string expected;
};

TEST(Basis, LiesAboveZeroAndBelowTenMillion) {
  const AmountCase cases[] = {
      {"38450", "", "38,450.00|38450.0000"},
      {"38,450.00", "4,000.00", "38,450.00|38450.0000"},
      {"9999999.99", "", "9,999,999.99|9999999.9900"},
      {"9999999.991", "", basis_huge},
      {"10000000", "", basis_huge},
      {"1E308", "", basis_huge},
      {"0", "", basis_nothing},
      {"-0", "", basis_nothing},
      {"0.000", "", basis_nothing},
      {"-5", "", basis_minus},
      {"-0.001", "", basis_minus},
      {"", "150", "|0.0000"},
      {"-", "", no_basis},
      {".", "", no_basis},
      {"12a", "", no_basis},
      // The record holds what is shown: cents, halves to even.
      {"0.001", "", "0.00|0.0000"},
      {"2.675", "", "2.68|2.6800"},
      {"2.665", "", "2.66|2.6600"},
      {"1.005", "", "1.00|1.0000"},
      {"1e3", "", "1,000.00|1000.0000"},
      // Against the salvage value, as money of four decimals.
      {"100", "150", basis_under_salvage},
      {"150", "150", "150.00|150.0000"},
      {"149.9999", "150", basis_under_salvage},
      {"149.99996", "150", "150.00|150.0000"},
      {"100", "0", "100.00|100.0000"},
      // A salvage value that cannot be read ends the check.
      {"100", "abc", "error 13"},
      {"100", "1E30", "error 6"},
      // The first failure counts.
      {"0", "150", basis_nothing},
      {"-1", "150", basis_minus},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(answer([&] { return basisRule({c.text}, c.other); }), c.expected)
        << c.text << " / " << c.other;
  }
}

TEST(Basis, IsNotCheckedWhileUnchanged) {
  const auto unchanged = [](std::string_view text, std::string_view salvage) {
    return answer([=] { return basisRule({text, false}, salvage); });
  };
  EXPECT_EQ(unchanged("100.00", "150.00"), "100.00|100.0000");
  EXPECT_EQ(unchanged("20000000", ""), "20,000,000.00|20000000.0000");
  EXPECT_EQ(unchanged("", ""), "|0.0000");
  EXPECT_EQ(unchanged("abc", ""), "error 13");
}

TEST(Salvage, LiesFromZeroToTheBasis) {
  const AmountCase cases[] = {
      {"4000", "38450", "4,000.00|4000.0000"},
      {"0", "38450", "0.00|0.0000"},
      {"-0", "", "0.00|0.0000"},
      {"", "38450", "|0.0000"},
      {"9999999.99", "", "9,999,999.99|9999999.9900"},
      {"9999999.995", "", salvage_huge},
      {"10000000", "5", salvage_huge},
      {"-5", "", salvage_minus},
      {"-0.0001", "100", salvage_minus},
      {"abc", "", no_salvage},
      {"-", "100", no_salvage},
      {"150", "100", salvage_over_basis},
      {"150", "150", "150.00|150.0000"},
      {"150.0001", "150", salvage_over_basis},
      {"150.00004", "150", "150.00|150.0000"},
      {"0.125", "1", "0.12|0.1200"},
      {"150", "abc", "error 13"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(answer([&] { return salvageRule({c.text}, c.other); }), c.expected)
        << c.text << " / " << c.other;
  }
}

TEST(Salvage, IsNotCheckedWhileUnchanged) {
  const auto unchanged = [](std::string_view text, std::string_view basis) {
    return answer([=] { return salvageRule({text, false}, basis); });
  };
  EXPECT_EQ(unchanged("150.00", "100.00"), "150.00|150.0000");
  EXPECT_EQ(unchanged("0", ""), "0.00|0.0000");
  EXPECT_EQ(unchanged("", "100"), "|0.0000");
  EXPECT_EQ(unchanged("abc", ""), "error 13");
}

// --- Production capacity --------------------------------------------------------------------

TEST(ProductionCapacity, IsAWholeNumberWithoutUpperBound) {
  const Case cases[] = {
      {"12345.6", "12,346|12,346"},
      {"12345.5", "12,346|12,346"},
      {"12344.5", "12,344|12,344"},
      {"0", "0|0"},
      {"-0", "0|0"},
      {"0.4", "0|0"},
      {"150000", "150,000|150,000"},
      {"1e18", "1,000,000,000,000,000,000|1,000,000,000,000,000,000"},
      {"-1", capacity_minus},
      {"-0.0001", capacity_minus},
      {"many", no_capacity},
      {"-", no_capacity},
      {"", "|"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(answer([&] { return productionCapacityRule({c.text}); }), c.expected) << c.text;
  }
}

TEST(ProductionCapacity, StoresZeroForAFieldThatWasEmptyBefore) {
  EXPECT_EQ(answer([] { return productionCapacityRule({"", false}); }), "|0");
  EXPECT_EQ(answer([] { return productionCapacityRule({"12,346", false}); }), "12,346|12,346");
  EXPECT_EQ(answer([] { return productionCapacityRule({"-3", false}); }), "-3|-3");
  EXPECT_EQ(answer([] { return productionCapacityRule({"many", false}); }), "error 13");
}

// --- While typing ---------------------------------------------------------------------------

TEST(NumericFields, RefuseWhileTypingWhatIsNoNumber) {
  const std::pair<NumericField, FieldMessage> fields[] = {
      {NumericField::life, life_not_numeric},
      {NumericField::basis, basis_not_numeric},
      {NumericField::salvage, salvage_not_numeric},
      {NumericField::capacity, capacity_not_numeric}};
  for (const auto& [field, message] : fields) {
    for (const std::string text : {"-", "+", ".", "a", "5a", "1e", "--5", "(5)", "&H5", " "}) {
      EXPECT_EQ(refusedWhileTyping(field, text), Rejected{message}) << text;
    }
    for (const std::string text : {"", "5", "5.", ".5", "-5", "1,234", "1e5", " 5 ", "0"}) {
      EXPECT_EQ(refusedWhileTyping(field, text), std::nullopt) << text;
    }
  }
}

TEST(FreeTexts, HoldTwentyTypedCharacters) {
  const std::string nineteen(19, 'x');
  const std::string twenty(20, 'x');
  const std::string pasted(35, 'x');
  std::string accented;
  for (int i = 0; i < 19; ++i) accented += "\xC3\xA9";
  for (char32_t key = 0; key < 256; ++key) {
    const bool printable = key >= 32 && key <= 126;
    EXPECT_EQ(limitedKey("", key), KeyAnswer{});
    EXPECT_EQ(limitedKey(nineteen, key), KeyAnswer{});
    EXPECT_EQ(limitedKey(accented, key), KeyAnswer{});
    EXPECT_EQ(limitedKey(twenty, key), (KeyAnswer{true, printable})) << static_cast<int>(key);
    EXPECT_EQ(limitedKey(pasted, key), (KeyAnswer{true, printable})) << static_cast<int>(key);
  }
  EXPECT_EQ(limitedKey(twenty, 0x20AC), (KeyAnswer{true, false}));
}

}  // namespace
}  // namespace depcalc
