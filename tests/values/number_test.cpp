// Numbers and money as texts, rounded and shown.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/support/error_of.h"
#include "values/currency.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

TEST(Rounding, SendsHalvesToTheEvenNeighbour) {
  const std::pair<double, double> cases[] = {
      {0.5, 0},   {1.5, 2},    {2.5, 2},    {3.5, 4}, {-0.5, 0},         {-1.5, -2},
      {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {0.0, 0}, {1e15 + 0.5, 1e15}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(nearestEven(value), expected) << value;
}

TEST(Rounding, AgreesWithTheLibraryEverywhere) {
  const unsigned seed = 20240615;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    // Any magnitude, with many exact halves among them.
    const auto whole = static_cast<double>(static_cast<std::int64_t>(random()) >> (random() % 63));
    const double value = whole / (random() % 2 == 0 ? 2.0 : 1000.0);
    ASSERT_EQ(nearestEven(value), std::nearbyint(value)) << value;
  }
}

TEST(Rounding, IntegersCheckTheirRangeAfterRounding) {
  EXPECT_EQ(toInteger16HalfEven(32767.4), 32767);
  EXPECT_EQ(toInteger16HalfEven(-32768.5), -32768);
  EXPECT_EQ(errorOf([] { toInteger16HalfEven(32767.5); }), 6);
  EXPECT_EQ(errorOf([] { toInteger16HalfEven(NAN); }), 6);
  EXPECT_EQ(toLong32HalfEven(2147483647.4), 2147483647);
  EXPECT_EQ(errorOf([] { toLong32HalfEven(2147483647.5); }), 6);
  EXPECT_EQ(errorOf([] { toLong32HalfEven(-INFINITY); }), 6);
}

TEST(Rounding, DivisionNeverYieldsInfinityOrNaN) {
  EXPECT_EQ(divide(1, 4), 0.25);
  EXPECT_EQ(errorOf([] { divide(1, 0); }), 11);
  EXPECT_EQ(errorOf([] { divide(0, 0); }), 6);
  EXPECT_EQ(errorOf([] { divide(1, 1e-310); }), 6);
}

struct NumberCase {
  const char* text;
  double value;
};

TEST(NumberText, ReadsWhatIsANumber) {
  const NumberCase cases[] = {{"0", 0},          {"12", 12},
                              {"-12", -12},      {"+12", 12},
                              {" 12\t", 12},     {"1,234.5", 1234.5},
                              {"1,2,3", 123},    {".5", 0.5},
                              {"5.", 5},         {"-.5", -0.5},
                              {"1e3", 1000},     {"1E+3", 1000},
                              {"1.5e-2", 0.015}, {"9999999.99", 9999999.99},
                              {"1e-400", 0},     {"0e999999", 0},
                              {"0.1", 0.1},      {"123456789012345678", 123456789012345678.0},
                              {"1e308", 1e308},  {"00012", 12},
                              {",5", 5},         {"5,", 5}};
  for (const auto& [text, value] : cases) {
    EXPECT_TRUE(isNumeric(text)) << text;
    EXPECT_EQ(numberFromText(text), value) << text;
  }
}

TEST(NumberText, RefusesWhatIsNone) {
  constexpr const char* no_break_space_and_5 = "\xC2\xA0\x35";
  for (const char* text : {"",
                           " ",
                           "-",
                           ".",
                           "+",
                           ",",
                           "-.",
                           "abc",
                           "1a",
                           "a1",
                           "1 2",
                           "- 1",
                           "1-",
                           "--1",
                           "$5",
                           "(5)",
                           "0x10",
                           "&H10",
                           "1.2.3",
                           "1.2,3",
                           "1e",
                           "1e+",
                           "e5",
                           "1e5.5",
                           "1d3",
                           "5%",
                           "1e309",
                           "1e999999999999",
                           "inf",
                           "nan",
                           no_break_space_and_5,
                           "1\n"}) {
    EXPECT_FALSE(isNumeric(text)) << text;
    EXPECT_EQ(errorOf([&] { numberFromText(text); }), 13) << text;
    EXPECT_EQ(errorOf([&] { Currency::fromText(text); }), 13) << text;
  }
}

TEST(NumberText, WritesFifteenSignificantDigits) {
  const std::pair<double, const char*> cases[] = {{0, "0"},
                                                  {-0.0, "0"},
                                                  {5, "5"},
                                                  {7.5, "7.5"},
                                                  {-2.25, "-2.25"},
                                                  {0.1, "0.1"},
                                                  {0.1 + 0.2, "0.3"},
                                                  {1.0 / 3.0, "0.333333333333333"},
                                                  {1.0 / 30.0, "3.33333333333333E-02"},
                                                  {2.0 / 3.0, "0.666666666666667"},
                                                  {1e-5, "0.00001"},
                                                  {1e-7, "0.0000001"},
                                                  {1e-15, "0.000000000000001"},
                                                  {1e-16, "1E-16"},
                                                  {123456789012345.0, "123456789012345"},
                                                  {999999999999999.9, "1E+15"},
                                                  {1e15, "1E+15"},
                                                  {1.5e15, "1.5E+15"},
                                                  {1e100, "1E+100"},
                                                  {-1.25e-20, "-1.25E-20"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(numberToText(value), text);
  EXPECT_EQ(errorOf([] { numberToText(INFINITY); }), 6);
}

TEST(NumberText, ReadsBackWhatItWrote) {
  const unsigned seed = 7;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < 50'000; ++i) {
    const double value = static_cast<double>(random() % 1'000'000'000'000'000ULL) /
                         std::pow(10.0, static_cast<double>(random() % 16));
    ASSERT_NEAR(numberFromText(numberToText(value)), value, value * 1e-14);
  }
}

TEST(CurrencyValue, RoundsADoubleToTenThousandthsHalvesToEven) {
  EXPECT_EQ(Currency::fromDouble(0.00005).ticks(), 0);
  EXPECT_EQ(Currency::fromDouble(0.00025).ticks(), 2);
  EXPECT_EQ(Currency::fromDouble(0.00035).ticks(), 4);
  // The product is rounded, not the decimal digits: 0.00015 × 10,000 is a little below 1.5.
  EXPECT_EQ(Currency::fromDouble(0.00015).ticks(), 1);
  EXPECT_EQ(Currency::fromDouble(-1.5).ticks(), -15000);
  EXPECT_EQ(Currency::fromDouble(922337203685477.0).ticks(), 9223372036854769664);
  EXPECT_EQ(Currency::fromDouble(-922337203685477.5808).ticks(), INT64_MIN);
  EXPECT_EQ(errorOf([] { Currency::fromDouble(922337203685477.5808); }), 6);
  EXPECT_EQ(errorOf([] { Currency::fromDouble(NAN); }), 6);
}

TEST(CurrencyValue, RoundsToCentsOnTheDouble) {
  EXPECT_EQ(Currency::fromDoubleTo2HalfEven(333.335).ticks(), 3333400);
  EXPECT_EQ(Currency::fromDoubleTo2HalfEven(0.125).ticks(), 1200);
  EXPECT_EQ(Currency::fromDoubleTo2HalfEven(0.375).ticks(), 3800);
  EXPECT_EQ(Currency::fromDoubleTo2HalfEven(1.005).ticks(), 10000);
  EXPECT_EQ(Currency::fromDoubleTo2HalfEven(-0.125).ticks(), -1200);
}

double roundTo2HalfEven(double x) { return nearestEven(x * 100.0) / 100.0; }

TEST(CurrencyValue, RoundsToCentsAsInTwoSteps) {
  const unsigned seed = 99;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    const double value =
        static_cast<double>(static_cast<std::int64_t>(random()) >> (random() % 50)) /
        (random() % 2 == 0 ? 20'000.0 : 77'777.0);
    ASSERT_EQ(Currency::fromDoubleTo2HalfEven(value), Currency::fromDouble(roundTo2HalfEven(value)))
        << value;
  }
}

TEST(CurrencyValue, ReadsTextsExactly) {
  const std::pair<const char*, std::int64_t> cases[] = {{"1,250.50", 12505000},
                                                        {"0.00005", 0},
                                                        {"0.00015", 2},
                                                        {"0.000151", 2},
                                                        {"0.00025000001", 3},
                                                        {"-0.00005", 0},
                                                        {"1e3", 10000000},
                                                        {"12e-5", 1},
                                                        {"922337203685477.5807", INT64_MAX},
                                                        {"-922337203685477.5808", INT64_MIN},
                                                        {"0.1", 1000},
                                                        {"9007199254740.9931", 90071992547409931}};
  for (const auto& [text, ticks] : cases)
    EXPECT_EQ(Currency::fromText(text).ticks(), ticks) << text;
  EXPECT_EQ(errorOf([] { Currency::fromText("922337203685477.58075"); }), 6);
  EXPECT_EQ(errorOf([] { Currency::fromText("1e300"); }), 6);
}

TEST(CurrencyValue, WritesPlainTexts) {
  EXPECT_EQ(Currency::fromText("1,250.50").toText(), "1250.5");
  EXPECT_EQ(Currency::fromTicks(0).toText(), "0");
  EXPECT_EQ(Currency::fromTicks(-1).toText(), "-0.0001");
  EXPECT_EQ(Currency::fromTicks(100'000).toText(), "10");
  EXPECT_EQ(Currency::fromTicks(INT64_MIN).toText(), "-922337203685477.5808");
  EXPECT_EQ(Currency::fromTicks(-12).toFixed4(), "-0.0012");
  EXPECT_EQ(Currency::fromTicks(12505000).toFixed4(), "1250.5000");
}

TEST(CurrencyTexts, WithFourDecimalsAreReadBackAndNoOthers) {
  for (const std::int64_t ticks : {std::int64_t{0}, std::int64_t{1}, std::int64_t{-12},
                                   std::int64_t{12'505'000}, INT64_MAX, INT64_MIN}) {
    const Currency amount = Currency::fromTicks(ticks);
    EXPECT_EQ(Currency::tryFromFixed4(amount.toFixed4()), amount) << ticks;
  }
  for (const char* text :
       {"", "0", ".0000", "-.0000", "1.000", "1.00000", "1,000.0000", "1.0000 ", " 1.0000",
        "+1.0000", "1-.0000", "1.00-1", "--1.0000", "1e1.0000", "922337203685477.5808",
        "-922337203685477.5809", "111111111111111111111.0000"}) {
    EXPECT_EQ(Currency::tryFromFixed4(text), std::nullopt) << text;
  }
}

TEST(CurrencyValue, RefusesASumOutOfRange) {
  const Currency most = Currency::fromTicks(INT64_MAX);
  EXPECT_EQ(errorOf([&] { (void)(most + Currency::fromTicks(1)); }), 6);
  EXPECT_EQ(errorOf([&] { (void)(Currency::fromTicks(INT64_MIN) - Currency::fromTicks(1)); }), 6);
  EXPECT_EQ((most - most).ticks(), 0);
}

TEST(DisplayFormat, GroupsAndRoundsHalvesToEvenOnTheDecimalDigits) {
  const std::pair<double, const char*> money[] = {{0, "0.00"},
                                                  {2.675, "2.68"},
                                                  {1.005, "1.00"},
                                                  {1.015, "1.02"},
                                                  {0.995, "1.00"},
                                                  {999.995, "1,000.00"},
                                                  {1234567.891, "1,234,567.89"},
                                                  {-1234.5, "-1,234.50"},
                                                  {-0.004, "0.00"},
                                                  {1e15, "1,000,000,000,000,000.00"},
                                                  {9999999.99, "9,999,999.99"},
                                                  {0.005, "0.00"},
                                                  {0.015, "0.02"}};
  for (const auto& [value, text] : money) EXPECT_EQ(formatMoney(value), text) << value;
  const std::pair<double, const char*> whole[] = {
      {12344.5, "12,344"}, {12345.5, "12,346"},
      {12345.6, "12,346"}, {0.5, "0"},
      {0.51, "1"},         {-0.4, "0"},
      {999.5, "1,000"},    {1e20, "100,000,000,000,000,000,000"}};
  for (const auto& [value, text] : whole) EXPECT_EQ(formatWhole(value), text) << value;
}

TEST(DisplayFormat, ShowsAmountsExactly) {
  EXPECT_EQ(formatMoney(Currency::fromText("1.005")), "1.00");
  EXPECT_EQ(formatMoney(Currency::fromText("1.015")), "1.02");
  EXPECT_EQ(formatMoney(Currency::fromText("-1234.5")), "-1,234.50");
  EXPECT_EQ(formatMoney(Currency::fromText("-0.0049")), "0.00");
  EXPECT_EQ(formatExactMoney(Currency::fromText("12344.5")), "12,344.50");
  EXPECT_EQ(formatExactMoney(Currency::fromText("-12344.505")), "-12,344.505");
  EXPECT_EQ(formatExactMoney(Currency::fromText("0.0001")), "0.0001");
  EXPECT_EQ(formatExactMoney(Currency()), "0.00");
  EXPECT_EQ(formatRate(Currency::fromText("0.2297")), "0.2297");
  EXPECT_EQ(formatRate(Currency::fromText("95054.47")), "95,054.4700");
  EXPECT_EQ(formatMoney(Currency::fromTicks(INT64_MAX)), "922,337,203,685,477.58");
  EXPECT_EQ(formatMoney(Currency::fromTicks(INT64_MIN)), "-922,337,203,685,477.58");
  EXPECT_EQ(formatRate(Currency::fromTicks(-1)), "-0.0001");
}

TEST(DisplayFormat, ShowsAmountsAsItShowsDoublesThatHoldThem) {
  constexpr unsigned seed = 20240615;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  for (int i = 0; i < 200'000; ++i) {
    // As many with few digits as with many; a double holds fifteen.
    const auto ticks = static_cast<std::int64_t>(random() >> (20 + random() % 44));
    const Currency amount = Currency::fromTicks(random() % 2 == 0 ? ticks : -ticks);
    ASSERT_EQ(formatMoney(amount), formatMoney(amount.toDouble())) << amount.toFixed4();
  }
}

TEST(ExactNumberText, ReadsBackAsTheSameNumber) {
  EXPECT_EQ(exactNumberText(5), "5e+00");
  EXPECT_EQ(exactNumberText(-0.1), "-1e-01");
  EXPECT_EQ(exactNumberText(0), "0e+00");
  for (const double value : {1.0 / 3, -0.0, 7.5, 1e22, std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::denorm_min()}) {
    const double read = numberFromText(exactNumberText(value));
    EXPECT_EQ(read, value);
    EXPECT_EQ(std::signbit(read), std::signbit(value));
  }
}

TEST(ShortestNumberText, ReadsBackAsTheSameNumber) {
  EXPECT_EQ(shortestNumberText(5), "5");
  EXPECT_EQ(shortestNumberText(-0.1), "-0.1");
  EXPECT_EQ(shortestNumberText(1e22), "1e+22");
  for (const double value : {1.0 / 3, 7.5, std::numeric_limits<double>::max()}) {
    EXPECT_EQ(numberFromText(shortestNumberText(value)), value);
  }
  EXPECT_THROW(shortestNumberText(std::numeric_limits<double>::infinity()), RuntimeError);
}

}  // namespace
}  // namespace depcalc
