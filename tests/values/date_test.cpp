// Calendar dates, their arithmetic and their texts; stored values.
#include "values/date.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/error_of.h"
#include "values/stored_value.h"

namespace depcalc {
namespace {

const Date today = Date::strict(2026, 11, 21);

TEST(DateValue, CountsFromTheThirtiethOfDecember1899) {
  EXPECT_EQ(Date().toText(), "12/30/1899");
  EXPECT_TRUE(Date::strict(1899, 12, 30).isNone());
  EXPECT_EQ(Date::strict(1900, 1, 1).dayNumber(), 2);
  EXPECT_EQ(Date::strict(2000, 1, 1).dayNumber(), 36526);
  EXPECT_EQ(Date::strict(100, 1, 1).dayNumber(), -657434);
  EXPECT_EQ(Date::strict(9999, 12, 31).dayNumber(), 2958465);
}

TEST(DateValue, CarriesPartsThatOverflow) {
  const struct {
    int year, month, day;
    const char* date;
  } cases[] = {
      {2023, 2, 29, "03/01/2023"},   {2024, 2, 29, "02/29/2024"}, {2023, 13, 1, "01/01/2024"},
      {2023, 1, 0, "12/31/2022"},    {2023, 0, 1, "12/01/2022"},  {2023, -11, 1, "01/01/2022"},
      {2023, 12, 32, "01/01/2024"},  {29, 1, 1, "01/01/2029"},    {30, 1, 1, "01/01/1930"},
      {99, 12, 31, "12/31/1999"},    {0, 1, 1, "01/01/2000"},     {100, 1, 1, "01/01/0100"},
      {-1, 6, 100'000, "03/15/0273"}};
  for (const auto& c : cases) EXPECT_EQ(Date::carrying(c.year, c.month, c.day).toText(), c.date);
  EXPECT_EQ(errorOf([] { Date::carrying(9999, 12, 32); }), 5);
  EXPECT_EQ(errorOf([] { Date::carrying(100, 1, 0); }), 5);
  EXPECT_EQ(errorOf([] { Date::carrying(2'000'000'000, 1, 1); }), 5);
  // The day carries as far as it has to, from the years that a month may carry into.
  EXPECT_EQ(Date::carrying(-9999, 1, 4'382'545).toText(), "01/01/2000");
  EXPECT_EQ(errorOf([] { Date::carrying(-10'000, 12, 4'382'545); }), 5);
  EXPECT_EQ(Date::carrying(19'999, 12, -6'574'333).toText(), "01/01/2000");
  EXPECT_EQ(errorOf([] { Date::carrying(20'000, 1, -6'574'333); }), 5);
}

TEST(DateValue, RefusesPartsThatAreNoDay) {
  EXPECT_EQ(Date::strict(2024, 2, 29).toText(), "02/29/2024");
  EXPECT_EQ(errorOf([] { Date::strict(2023, 2, 29); }), 13);
  EXPECT_EQ(errorOf([] { Date::strict(2023, 13, 1); }), 13);
  EXPECT_EQ(errorOf([] { Date::strict(2023, 4, 31); }), 13);
  EXPECT_EQ(errorOf([] { Date::strict(2023, 1, 0); }), 13);
  EXPECT_EQ(errorOf([] { Date::strict(10000, 1, 1); }), 5);
  EXPECT_FALSE(Date::exists(10000, 1, 1));
  EXPECT_FALSE(Date::exists(-1, 1, 1));
  EXPECT_TRUE(Date::exists(2000, 2, 29));
  EXPECT_FALSE(Date::exists(1900, 2, 29));
}

TEST(DateValue, AddsMonthsAndYearsClampingToTheMonthsEnd) {
  EXPECT_EQ(Date::strict(2024, 2, 29).plusYears(1).toText(), "02/28/2025");
  EXPECT_EQ(Date::strict(2024, 1, 31).plusMonths(1).toText(), "02/29/2024");
  EXPECT_EQ(Date::strict(2024, 3, 31).plusMonths(-1).toText(), "02/29/2024");
  EXPECT_EQ(Date::strict(2024, 1, 1).plusMonths(5.5).toText(), "07/01/2024");
  EXPECT_EQ(Date::strict(2024, 1, 1).plusMonths(4.5).toText(), "05/01/2024");
  EXPECT_EQ(Date::strict(2024, 1, 1).plusYears(0.5).toText(), "01/01/2024");
  EXPECT_EQ(Date::strict(2024, 1, 1).plusYears(1.5).toText(), "01/01/2026");
  EXPECT_EQ(Date::strict(2024, 1, 31).plusDays(30).toText(), "03/01/2024");
  EXPECT_EQ(Date::strict(100, 1, 1).plusDays(3'615'899).toText(), "12/31/9999");
  EXPECT_EQ(Date::strict(9999, 12, 31).plusDays(-3'615'899).toText(), "01/01/0100");
  EXPECT_EQ(errorOf([] { (void)Date::strict(9999, 12, 31).plusDays(1); }), 5);
  EXPECT_EQ(errorOf([] { (void)Date::strict(9999, 12, 31).plusMonths(1); }), 5);
  EXPECT_EQ(errorOf([] { (void)Date().plusYears(1e300); }), 5);
  EXPECT_EQ(errorOf([] { (void)Date().plusDays(INT64_MAX); }), 5);
}

TEST(DateValue, CountsBoundariesBetweenDates) {
  EXPECT_EQ(monthsBetween(Date::strict(2023, 1, 31), Date::strict(2023, 12, 1)), 11);
  EXPECT_EQ(monthsBetween(Date::strict(2024, 1, 1), Date::strict(2023, 12, 31)), -1);
  EXPECT_EQ(daysBetween(Date::strict(2023, 7, 1), Date::strict(2023, 12, 31)), 183);
}

TEST(DateText, ReadsMonthFirstAlways) {
  const std::pair<const char*, const char*> cases[] = {{"3/15/2020", "03/15/2020"},
                                                       {"03-15-2020", "03/15/2020"},
                                                       {"3/15-20", "03/15/2020"},
                                                       {"3/15", "03/15/2026"},
                                                       {"12-31", "12/31/2026"},
                                                       {"3/15/29", "03/15/2029"},
                                                       {"3/15/30", "03/15/1930"},
                                                       {"3/15/5", "03/15/2005"},
                                                       {"2020-03-15", "03/15/2020"},
                                                       {"2020/3/5", "03/05/2020"},
                                                       {"March 15, 2020", "03/15/2020"},
                                                       {"mar 15 2020", "03/15/2020"},
                                                       {"MARCH 15", "03/15/2026"},
                                                       {"15-Mar-2020", "03/15/2020"},
                                                       {"15 March 2020", "03/15/2020"},
                                                       {"Mar-15-2020", "03/15/2020"},
                                                       {"15 Dec", "12/15/2026"},
                                                       {"2020-Mar-15", "03/15/2020"},
                                                       {" 3/15/2020 ", "03/15/2020"},
                                                       {"3/15/2020 10:30", "03/15/2020"},
                                                       {"3/15/2020 10:30:59 PM", "03/15/2020"},
                                                       {"March 15, 2020 9:05 am", "03/15/2020"},
                                                       {"3/15/2020 10:30PM", "03/15/2020"},
                                                       {"3/15/2020 10 pm", "03/15/2020"},
                                                       {"3/15 12am", "03/15/2026"},
                                                       {"02/29/2024", "02/29/2024"},
                                                       {"1/1/100", "01/01/0100"},
                                                       {"12/31/9999", "12/31/9999"},
                                                       {"12/30/1899", "12/30/1899"}};
  for (const auto& [text, date] : cases) {
    ASSERT_TRUE(Date::isDate(text, today)) << text;
    EXPECT_EQ(Date::fromText(text, today).toText(), date) << text;
  }
}

TEST(DateText, RefusesWhatIsNoDate) {
  for (const char* text : {"",
                           " ",
                           "0315",
                           "03152020",
                           "3.15.2020",
                           "13/5/2020",
                           "2/30/2020",
                           "2/29/2023",
                           "2/29",
                           "0/1/2020",
                           "1/0/2020",
                           "March",
                           "March 2020",
                           "2020",
                           "2020-03",
                           "3/15/",
                           "/3/15",
                           "3//15",
                           "3/15/2020/1",
                           "3/15/12345",
                           "3/15/0050",
                           "1/1/10000",
                           "Marsh 15, 2020",
                           "3 15 2020",
                           "3/15/2020 25:00",
                           "3/15/2020 10:60",
                           "3/15/2020 24:00",
                           "3/15/2020 10:30:60",
                           "3/15/2020 1:2:3:4",
                           "3/15/2020 13:00 PM",
                           "3/15/2020 0:30 AM",
                           "3/15/2020 10",
                           "3/15/2020 PM",
                           "3/15/2020 10 XM",
                           "PM",
                           "M",
                           "10:30",
                           "10:30 AM",
                           "3/15/20x",
                           "15Mar2020",
                           "March, 15 2020",
                           "-3/15",
                           "3/15/-20",
                           "1e1/5/2020",
                           "003/15/2020",
                           "3/015/2020",
                           "2020/3/015",
                           "March 015, 2020",
                           "015 March 2020"}) {
    EXPECT_FALSE(Date::isDate(text, today)) << text;
    EXPECT_EQ(errorOf([&] { Date::fromText(text, today); }), 13) << text;
  }
}

/// "2024-02-29", or nearly so.
std::string nearlyDateOfDataFile(std::mt19937& random) {
  static constexpr std::string_view others = "0123456789-/ x.";
  const auto number = [&](unsigned least, unsigned most) {
    return std::to_string(10'000 + least + random() % (most - least + 1));
  };
  std::string text =
      number(0, 9'999).substr(1) + '-' + number(0, 13).substr(3) + '-' + number(0, 32).substr(3);
  for (auto changes = random() % 3; changes > 0; --changes) {
    text[random() % text.size()] = others[random() % others.size()];
  }
  if (random() % 8 == 0) text.erase(random() % text.size(), 1);
  return text;
}

TEST(DateText, IsReadTheShortWayAsTheLongWay) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int dates = 0;
  for (int i = 0; i < 300'000; ++i) {
    const std::string text = nearlyDateOfDataFile(random);
    const auto date = Date::tryFromText(text, today);
    // With a time of day, which is dropped, there is no short way.
    ASSERT_EQ(date, Date::tryFromText(text + " 10:30", today)) << text;
    dates += date.has_value() ? 1 : 0;
  }
  EXPECT_GT(dates, 50'000);
}

TEST(DateText, WritesAndReadsBackEveryDayOfACentury) {
  for (Date date = Date::strict(1960, 1, 1); date < Date::strict(2060, 1, 1);
       date = date.plusDays(1)) {
    ASSERT_EQ(Date::fromText(date.toText(), today), date);
    ASSERT_EQ(Date::fromText(date.toIsoText(), today), date);
    ASSERT_EQ(Date::fromText(date.monthName() + " " + std::to_string(date.day()) + ", " +
                                 std::to_string(date.year()),
                             today),
              date);
  }
}

TEST(StoredValueReading, ConvertsBetweenTypes) {
  const auto text = StoredValue::text("1,250.5");
  EXPECT_EQ(text.asDouble(), 1250.5);
  EXPECT_EQ(text.asCurrency(), Currency::fromText("1250.5"));
  EXPECT_EQ(StoredValue::integer(2023).asText(), "2023");
  EXPECT_EQ(StoredValue::currency(Currency::fromText("1250.5")).asText(), "1250.5");
  EXPECT_EQ(StoredValue::date(today).asText(), "11/21/2026");
  EXPECT_EQ(StoredValue::date(today).asDouble(), today.dayNumber());
  EXPECT_EQ(StoredValue::real(36526.75).asDate(today).toText(), "01/01/2000");
  EXPECT_EQ(StoredValue::real(-1.25).asDate(today).toText(), "12/29/1899");
  EXPECT_EQ(StoredValue::text("3/15").asDate(today).toText(), "03/15/2026");
  EXPECT_EQ(StoredValue::text("9007199254740.9931").asCurrency().ticks(), 90071992547409931);
  EXPECT_EQ(StoredValue::real(2.5).asLong(), 2);
  EXPECT_EQ(StoredValue::text("70,001.5").asLong(), 70002);
}

TEST(StoredValueReading, TakesEmptyForNothing) {
  const StoredValue empty;
  EXPECT_EQ(empty.asText(), "");
  EXPECT_EQ(empty.asDouble(), 0);
  EXPECT_EQ(empty.asLong(), 0);
  EXPECT_EQ(empty.asCurrency(), Currency());
  EXPECT_TRUE(empty.asDate(today).isNone());
}

TEST(StoredValueReading, RefusesTextsThatAreNoNumberOrDate) {
  for (const char* text : {"", "abc"}) {
    const auto value = StoredValue::text(text);
    EXPECT_EQ(errorOf([&] { (void)value.asDouble(); }), 13);
    EXPECT_EQ(errorOf([&] { (void)value.asCurrency(); }), 13);
    EXPECT_EQ(errorOf([&] { (void)value.asDate(today); }), 13);
  }
  EXPECT_EQ(errorOf([] { (void)StoredValue::real(3e9).asLong(); }), 6);
  EXPECT_EQ(errorOf([] { (void)StoredValue::real(1e18).asDate(today); }), 5);
}

TEST(StoredValueReading, NamesItsType) {
  EXPECT_EQ(StoredValue().typeName(), "Empty");
  EXPECT_EQ(StoredValue::integer(1).typeName(), "Integer");
  EXPECT_EQ(StoredValue::real(1).typeName(), "Double");
  EXPECT_EQ(StoredValue::currency({}).typeName(), "Currency");
  EXPECT_EQ(StoredValue::date({}).typeName(), "Date");
  EXPECT_EQ(StoredValue::text("").typeName(), "String");
}

}  // namespace
}  // namespace depcalc
