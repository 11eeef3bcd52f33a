// What the extension calculates, apart from the server: equal to the command's way through the
// record, and safe for any arguments.
#include "postgresql/calculation.h"

#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <string>

#include "engine/first_fiscal_year.h"
#include "engine/method_results.h"
#include "engine/schedule_span.h"
#include "tests/support/failing_allocation.h"
#include "values/display_format.h"

namespace depcalc::postgresql {
namespace {

constexpr int days_before_2000 = 36'526;

ServerDay serverDay(int year, int month, int day) {
  return Date::strict(year, month, day).dayNumber() - days_before_2000;
}

NumberText textOf(const std::string& text) { return {text.data(), text.size()}; }

constexpr AssetArguments ordinary(const char* basis, const char* salvage) {
  return {.placed_in_service = 7'305,  // 1 January 2020
          .fiscal_year_end = 364,
          .life = 5,
          .convention = cdepHalfYear,
          .basis = {basis, std::char_traits<char>::length(basis)},
          .salvage = {salvage, std::char_traits<char>::length(salvage)},
          .method = ScheduledBy::straight_line};
}

TEST(Calculation, TellsYearsFromEachOther) {
  AssetSchedule schedule;
  ASSERT_EQ(calculateSchedule(ordinary("1000.00", "0"), schedule), Refusal::none);
  EXPECT_EQ(schedule.first_fiscal_year, 2020);
  EXPECT_EQ(schedule.fiscal_years, 6);
  const struct {
    std::int32_t year;
    std::int64_t amount;
    std::int64_t accumulated;
  } cases[] = {{INT32_MIN, 0, 0}, {2019, 0, 0},      {2020, 100, 100}, {2021, 200, 300},
               {2024, 200, 900},  {2025, 100, 1000}, {2026, 0, 1000},  {INT32_MAX, 0, 1000}};
  for (const auto& c : cases) {
    EXPECT_EQ(amountOf(schedule, c.year), Currency::fromTicks(c.amount * 10'000)) << c.year;
    EXPECT_EQ(accumulatedBy(schedule, c.year), Currency::fromTicks(c.accumulated * 10'000))
        << c.year;
  }
}

TEST(Calculation, TakesMoneyAsTheCommandReadsIt) {
  const struct {
    const char* text;
    std::int64_t ticks;
  } cases[] = {{"1250.5", 12'505'000},
               {"1250.5000", 12'505'000},
               {"1250.505", 12'505'000},
               {"1250.515", 12'515'200},
               {"9999999.99", 99'999'999'900},
               {"9999999.9900000000", 99'999'999'900},
               {"0.005", 0},
               {"1200", 12'000'000},
               {"0.01", 100}};
  for (const auto& c : cases) {
    AssetSchedule schedule;
    ASSERT_EQ(calculateSchedule(ordinary(c.text, "0"), schedule), Refusal::none) << c.text;
    EXPECT_EQ(schedule.basis.ticks(), moneyAsShown(c.text).ticks()) << c.text;
  }
}

/// Whether one calculation is the other to the last digit; `record` is reused.
void expectEqualToTheRecord(const AssetArguments& asset, ScheduledMethod method) {
  CalculateDep record;
  record.AssetStartDate(Date::fromDayNumber(asset.placed_in_service + days_before_2000));
  record.FYEnd(Date::fromDayNumber(asset.fiscal_year_end + days_before_2000));
  record.DepRecovery(asset.life);
  record.DepConvention(std::to_string(asset.convention));
  record.AssetBasis(Currency::fromText({asset.basis.begin, asset.basis.size}));
  record.AssetSalvage(Currency::fromText({asset.salvage.begin, asset.salvage.size}));
  MethodResults results;
  calculateAllMethods(record, results);
  AssetSchedule schedule;
  ASSERT_EQ(calculateSchedule(asset, schedule), Refusal::none);
  const auto& amounts = results.*method.amounts;
  ASSERT_EQ(schedule.fiscal_years, fiscalYearsSpanned(record));
  EXPECT_EQ(schedule.first_fiscal_year, firstFiscalYear(record.AssetStartDate(), record.FYEnd()));
  for (std::int32_t i = 0; i < schedule.fiscal_years; ++i) {
    const auto index = static_cast<std::size_t>(i);
    ASSERT_EQ(schedule.amounts[index], amounts.at(index)) << "year " << i;
  }
}

std::string cents(std::int64_t count) {
  std::string text = std::to_string(count);
  if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
  return text.insert(text.size() - 2, ".");
}

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  std::int64_t between(std::int64_t least, std::int64_t most) {
    return std::uniform_int_distribution(least, most)(engine_);
  }
  template <typename Container>
  auto oneOf(const Container& values) {
    return values[static_cast<std::size_t>(between(0, std::ssize(values) - 1))];
  }

 private:
  std::mt19937_64 engine_;
};

TEST(Calculation, EqualsTheRecordsForAnyAssetOfAnyTime) {
  constexpr unsigned seed = 20'261'122;
  SCOPED_TRACE(seed);
  Random random(seed);
  for (int i = 0; i < 20'000 && !::testing::Test::HasFailure(); ++i) {
    const std::int64_t basis = random.between(1, 999'999'999);
    const std::string basis_text = cents(basis);
    const std::string salvage_text = cents(random.between(0, basis));
    const auto method = static_cast<std::size_t>(random.between(0, 2));
    // The first and the last days of the calendar as often as all others.
    const std::int64_t years[] = {100, random.between(100, 9'948), random.between(9'940, 9'948)};
    const int year = static_cast<int>(random.oneOf(years));
    const AssetArguments asset{
        .placed_in_service = serverDay(year, 1, 1) + static_cast<ServerDay>(random.between(0, 364)),
        .fiscal_year_end = serverDay(2000, 1, 1) + static_cast<ServerDay>(random.between(0, 365)),
        .life = static_cast<double>(random.between(1, 50)),
        .convention = static_cast<std::int32_t>(random.between(0, 4)),
        .basis = textOf(basis_text),
        .salvage = textOf(salvage_text),
        .method = static_cast<ScheduledBy>(method)};
    SCOPED_TRACE(i);
    expectEqualToTheRecord(asset, scheduled_methods[method]);
  }
}

/// Arguments that nobody should give.
class Nonsense {
 public:
  explicit Nonsense(unsigned seed) : random_(seed) {}

  ServerDay day() {
    const std::int64_t days[] = {INT32_MIN,
                                 INT32_MAX,
                                 -693'960,  // 1 January 100 and the day before
                                 -693'961,
                                 2'921'939,  // 31 December 9999 and the day after
                                 2'921'940,
                                 random_.between(-693'960, -693'000),
                                 random_.between(2'880'000, 2'921'939),
                                 random_.between(INT32_MIN, INT32_MAX),
                                 random_.between(-40'000, 40'000)};
    return static_cast<ServerDay>(random_.oneOf(days));
  }

  double number() {
    const double numbers[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::denorm_min(),
                              std::numeric_limits<double>::max(),
                              -0.0,
                              0.5,
                              1,
                              50,
                              50.4,
                              bits(),
                              static_cast<double>(random_.between(10, 500)) / 10};
    return random_.oneOf(numbers);
  }

  std::string money() {
    const std::string texts[] = {"NaN",
                                 "Infinity",
                                 "-Infinity",
                                 "0",
                                 "-0.01",
                                 "0.00000",
                                 digits(1 + static_cast<std::size_t>(random_.between(0, 400))),
                                 "-" + digits(350),
                                 "0." + digits(30),
                                 digits(6) + "." + digits(4),
                                 cents(random_.between(0, 999'999'999)),
                                 "9999999.99",
                                 "10000000"};
    return random_.oneOf(texts);
  }

  std::int32_t convention() { return static_cast<std::int32_t>(random_.between(-1, 5)); }
  ScheduledBy method() { return static_cast<ScheduledBy>(random_.between(0, 4)); }
  std::int32_t year() { return static_cast<std::int32_t>(random_.between(INT32_MIN, INT32_MAX)); }

 private:
  double bits() { return std::bit_cast<double>(random_.between(INT64_MIN, INT64_MAX)); }
  std::string digits(std::size_t count) {
    std::string text(count, '0');
    for (char& c : text) c = static_cast<char>('0' + random_.between(0, 9));
    return text;
  }

  Random random_;
};

TEST(Calculation, AnswersOrRefusesWhateverItIsGiven) {
  constexpr unsigned seed = 18;
  SCOPED_TRACE(seed);
  Nonsense nonsense(seed);
  std::set<Refusal> met;
  for (int i = 0; i < 100'000; ++i) {
    // Allocated to their last byte, so that the sanitizer sees a read behind it.
    const std::string basis = nonsense.money();
    const std::string salvage = nonsense.money();
    AssetSchedule schedule;
    Currency rate;
    std::int32_t year = 0;
    met.insert(calculateRate(textOf(basis), textOf(salvage), nonsense.number(), rate));
    met.insert(findFirstFiscalYear(nonsense.day(), nonsense.day(), year));
    const AssetArguments asset{nonsense.day(),        nonsense.day(), nonsense.number(),
                               nonsense.convention(), textOf(basis),  textOf(salvage),
                               nonsense.method()};
    const Refusal refusal = calculateSchedule(asset, schedule);
    met.insert(refusal);
    if (refusal != Refusal::none) continue;
    ASSERT_LE(accumulatedBy(schedule, nonsense.year()), schedule.basis);
    ASSERT_LE(amountOf(schedule, nonsense.year()), schedule.basis);
  }
  for (int i = 0; i < refusals; ++i) {
    const auto refusal = static_cast<Refusal>(i);
    // The server asks for no convention or method that there is not; memory is not short here; and
    // nothing may be left that no limit foresees.
    const bool never = refusal == Refusal::unknown_convention ||
                       refusal == Refusal::unknown_method || refusal == Refusal::out_of_memory ||
                       refusal == Refusal::not_calculated;
    EXPECT_EQ(met.count(refusal), never ? 0U : 1U) << i;
  }
}

TEST(Calculation, SaysWhenMemoryRunsOut) {
  using testing_support::FailingAllocation;
  // Numbers that take the longer way, through texts.
  const std::string basis = "123456.789012345678901234567890123456789012345678901234567890";
  const std::string salvage = "1234.567890123456789012345678901234567890";
  AssetSchedule schedule;
  Currency rate;
  const std::function<Refusal()> calls[] = {
      [&] { return calculateSchedule(ordinary(basis.c_str(), salvage.c_str()), schedule); },
      [&] { return calculateRate(textOf(basis), textOf(salvage), 1e300, rate); }};
  for (const auto& call : calls) {
    ASSERT_EQ(call(), Refusal::none);
    const std::size_t before = testing_support::liveMemory();
    long nth = 1;
    for (bool reached = true; reached; ++nth) {
      Refusal refusal = Refusal::none;
      {
        const FailingAllocation failing(FailingAllocation::In::program, nth, 1);
        refusal = call();
        reached = failing.reached();
      }
      ASSERT_EQ(refusal, reached ? Refusal::out_of_memory : Refusal::none) << nth;
      ASSERT_EQ(testing_support::liveMemory(), before) << nth;
    }
    EXPECT_GT(nth, 3);
  }
}

TEST(Refusal, SaysWhatIsWrongAndTheWayOn) {
  for (int i = 1; i < refusals; ++i) {
    const RefusalText& text = postgresql::textOf(static_cast<Refusal>(i));
    SCOPED_TRACE(text.message);
    const std::string detail = text.detail;
    EXPECT_EQ(text.argument != Argument::none, detail.find("%s") != std::string::npos);
    EXPECT_EQ(detail.find('%'), detail.rfind('%'));
    EXPECT_TRUE(detail.ends_with('.'));
    EXPECT_TRUE(std::string(text.hint).ends_with('.'));
    EXPECT_FALSE(std::string(text.message).ends_with('.'));
  }
}

}  // namespace
}  // namespace depcalc::postgresql
