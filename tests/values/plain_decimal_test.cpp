#include "values/plain_decimal.h"

#include <gtest/gtest.h>

#include <random>

#include "values/decimal_digits.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {
namespace {

TEST(PlainDecimal, TakesNumbersAsPeopleWriteThem) {
  const struct {
    std::string text;
    std::int64_t mantissa;
    int decimals;
  } cases[] = {{"5", 5, 0},
               {"1,234.50", 123450, 2},
               {" -0.25 ", -25, 2},
               {"+7.", 7, 0},
               {".5", 5, 1},
               {",1,", 1, 0},
               {"000000000000001", 1, 0},
               {"999999999999.999", 999999999999999, 3}};
  for (const auto& c : cases) {
    const auto number = plainDecimal(c.text);
    ASSERT_TRUE(number) << c.text;
    EXPECT_EQ(number.mantissa, c.mantissa) << c.text;
    EXPECT_EQ(number.decimals, c.decimals) << c.text;
  }
}

TEST(PlainDecimal, LeavesTheRestToTheLongWay) {
  for (const std::string text :
       {"", " ", "-", ".", ",", "-0", "-0.00", "1e3", "1.2.3", "1.2,3", "5a", "- 5", "--5", "5-",
        "1234567890123456", "1,2,3,4,5,6,7,8,9,0"}) {
    EXPECT_FALSE(plainDecimal(text)) << text;
  }
}

/// A text of digits and a few signs, most often a number.
std::string randomNumberText(std::mt19937& random) {
  static const std::string signs = "-+.,, eE5";
  std::string text = random() % 4 == 0 ? "-" : "";
  const auto length = random() % 19;
  for (unsigned i = 0; i < length; ++i) text += static_cast<char>('0' + random() % 10);
  if (random() % 2 == 0) text.insert(random() % (text.size() + 1), ".");
  if (random() % 4 == 0)
    text.insert(random() % (text.size() + 1), 1, signs[random() % signs.size()]);
  if (random() % 8 == 0) text += "5";
  return text;
}

/// The same number with an exponent that changes nothing, which is read the long way.
std::string longWay(const std::string& text) {
  if (text.find_first_of("eE") != std::string::npos) return text;
  return std::string(trimmed(text)) + "e0";
}

TEST(PlainDecimal, SaysWhatTheLongWaySays) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int plain = 0;
  for (int i = 0; i < 200'000; ++i) {
    const std::string text = randomNumberText(random);
    const auto slow = tryNumberFromText(longWay(text));
    const auto quick = plainDecimal(text);
    ASSERT_EQ(tryNumberFromText(text), slow) << text;
    if (!quick) continue;
    ++plain;
    ASSERT_TRUE(slow) << text;
    const std::string exact = longWay(text);
    std::optional<Currency> amount;
    try {
      amount = Currency::fromText(exact);
    } catch (const RuntimeError&) {
      EXPECT_THROW((void)Currency::fromText(text), RuntimeError) << text;
      continue;
    }
    ASSERT_EQ(Currency::fromText(text), *amount) << text;
    ASSERT_EQ(moneyAsShown(text), Currency::fromText(formatMoney(*slow))) << text;
    ASSERT_EQ(formatMoney(moneyAsShown(text)), formatMoney(*slow)) << text;
  }
  EXPECT_GT(plain, 100'000);
}

TEST(MoneyAsShown, IsTheAmountInTheDisplayedText) {
  const std::pair<std::string, std::string> cases[] = {
      {"2.675", "2.6800"},
      {"2.665", "2.6600"},
      {"1.005", "1.0000"},
      {"-0.004", "0.0000"},
      {"1e3", "1000.0000"},
      {"1,234.5", "1234.5000"},
      {"0.00500000000000000001", "0.0000"},  // 15 digits count
  };
  for (const auto& [text, amount] : cases) EXPECT_EQ(moneyAsShown(text).toFixed4(), amount) << text;
  EXPECT_THROW((void)moneyAsShown("five"), RuntimeError);
}

TEST(WholeNumbers, AreGroupedTheSameShortAndLong) {
  EXPECT_EQ(formatWhole(-1234567), "-1,234,567");
  EXPECT_EQ(formatWhole(-0.0), "0");
  EXPECT_EQ(formatWhole(999999999999999), "999,999,999,999,999");
  EXPECT_EQ(formatWhole(1e15), "1,000,000,000,000,000");
  EXPECT_EQ(formatWhole(1234567890123456), "1,234,567,890,123,460");  // 15 digits count
  EXPECT_EQ(formatWhole(12344.5), "12,344");
  EXPECT_EQ(formatWhole(12345.5), "12,346");
}

}  // namespace
}  // namespace depcalc
