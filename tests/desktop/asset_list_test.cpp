// The assets beside the page: what a search finds, the order, and what it comes to.
#include "desktop/workspace/asset_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "reports/schedule.h"
#include "tests/reports/random_register.h"

namespace depcalc::testing {
namespace {

using desktop::AssetColumn;
using desktop::AssetList;
using desktop::AssetTotals;
using desktop::naturalOrder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing_support::Random;
using testing_support::someRegister;

std::string lower(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [](unsigned char character) { return std::tolower(character); });
  return folded;
}

struct Saved {
  const char* id;
  const char* name;
  const char* serial;
  const char* department;
  int year;
  int basis;
  Date disposed = {};
};

/// By Straight Line over two calendar years, the half of the basis in each.
ReportAsset assetOf(std::int32_t number, const Saved& from) {
  SavedAsset saved;
  saved.number = number;
  saved.id = from.id;
  saved.name = from.name;
  saved.serial = from.serial;
  saved.department = from.department;
  saved.placed_in_service = Date::strict(from.year, 1, 1);
  saved.disposed = from.disposed;
  saved.fiscal_year_end = Date::strict(from.year, 12, 31);
  saved.basis = Currency::fromTicks(from.basis * 10'000LL);
  saved.life = 2;
  saved.convention = "0";
  saved.method = "SL";
  saved.amounts = {Currency::fromTicks(from.basis * 5'000LL),
                   Currency::fromTicks(from.basis * 5'000LL)};
  return ReportAsset(saved);
}

std::shared_ptr<const RegisterOfAssets> registerOf(std::initializer_list<Saved> assets) {
  RegisterOfAssets made;
  made.today = Date::strict(2024, 6, 15);
  for (const Saved& asset : assets) {
    made.assets.push_back(assetOf(static_cast<std::int32_t>(made.assets.size()) + 1, asset));
  }
  return std::make_shared<const RegisterOfAssets>(std::move(made));
}

struct Listed : ::testing::Test {
  Listed() {
    list.setAssets(
        registerOf({{"TRK-14", "Delivery truck", "1FTYR10D", "Warehouse", 2024, 3000},
                    {"TRK-9", "Lathe", "", "Workshop", 2023, 1000},
                    {"van-1", "Old VAN", "", "Warehouse", 2022, 800, Date::strict(2023, 3, 1)},
                    {"SAW", "", "SN-77", "Workshop", 2025, 500},
                    {"FAN", "Fan", "", "", 2023, 200, Date::strict(2024, 3, 1)}}));
  }

  std::vector<std::string> ids() {
    std::vector<std::string> ids;
    for (std::size_t row = 0; row < list.count(); ++row) {
      ids.push_back(list.text(row, AssetColumn::id));
    }
    return ids;
  }

  AssetList list{lower};
};

TEST_F(Listed, ShowsTheRegistersOrderAtFirst) {
  EXPECT_THAT(ids(), ElementsAre("TRK-14", "TRK-9", "van-1", "SAW", "FAN"));
  EXPECT_EQ(list.fiscalYear(), 2024);
}

TEST_F(Listed, FindsEveryWordInAnyOfFourFields) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"", {"TRK-14", "TRK-9", "van-1", "SAW", "FAN"}},
      {"trk", {"TRK-14", "TRK-9"}},
      {"VAN", {"van-1"}},
      {"sn-77", {"SAW"}},
      {"work", {"TRK-9", "SAW"}},
      {"ware truck", {"TRK-14"}},
      {"  truck   ware ", {"TRK-14"}},
      {"truck work", {}},
      {"lathe\n", {}},
      {"1000", {}}};
  for (const auto& [text, found] : cases) {
    list.search(text);
    EXPECT_EQ(ids(), found) << text;
  }
}

TEST_F(Listed, HidesWhatIsDisposedOfByTheEndOfTheYear) {
  EXPECT_TRUE(list.isDisposed(2));
  EXPECT_TRUE(list.isDisposed(4));
  EXPECT_FALSE(list.isDisposed(0));
  list.hideDisposed(true);
  EXPECT_THAT(ids(), ElementsAre("TRK-14", "TRK-9", "SAW"));
  EXPECT_EQ(list.rowOf(4), 2U);
  EXPECT_EQ(list.rowOf(3), std::nullopt);
  list.search("an");
  EXPECT_THAT(ids(), IsEmpty());
  list.hideDisposed(false);
  EXPECT_THAT(ids(), ElementsAre("van-1", "FAN"));
}

TEST_F(Listed, SortsByEachColumnBothWaysAndEqualsStayInTheRegistersOrder) {
  struct Case {
    AssetColumn by;
    std::vector<std::string> upwards;
    std::vector<std::string> downwards;
  };
  const Case cases[] = {{AssetColumn::id,
                         {"FAN", "SAW", "TRK-9", "TRK-14", "van-1"},
                         {"van-1", "TRK-14", "TRK-9", "SAW", "FAN"}},
                        {AssetColumn::name,
                         {"SAW", "TRK-14", "FAN", "TRK-9", "van-1"},
                         {"van-1", "TRK-9", "FAN", "TRK-14", "SAW"}},
                        {AssetColumn::department,
                         {"FAN", "TRK-14", "van-1", "TRK-9", "SAW"},
                         {"TRK-9", "SAW", "TRK-14", "van-1", "FAN"}},
                        {AssetColumn::in_service,
                         {"van-1", "TRK-9", "FAN", "TRK-14", "SAW"},
                         {"SAW", "TRK-14", "TRK-9", "FAN", "van-1"}},
                        {AssetColumn::basis,
                         {"FAN", "SAW", "van-1", "TRK-9", "TRK-14"},
                         {"TRK-14", "TRK-9", "van-1", "SAW", "FAN"}},
                        {AssetColumn::method,
                         {"TRK-14", "TRK-9", "van-1", "SAW", "FAN"},
                         {"TRK-14", "TRK-9", "van-1", "SAW", "FAN"}},
                        {AssetColumn::book_value,
                         {"van-1", "SAW", "TRK-9", "FAN", "TRK-14"},
                         {"TRK-14", "TRK-9", "FAN", "van-1", "SAW"}}};
  ASSERT_EQ(std::size(cases), static_cast<std::size_t>(desktop::asset_column_count));
  for (const auto& [by, upwards, downwards] : cases) {
    list.sort(by, false);
    EXPECT_EQ(ids(), upwards) << static_cast<int>(by);
    list.sort(by, true);
    EXPECT_EQ(ids(), downwards) << static_cast<int>(by);
  }
  list.search("trk");
  EXPECT_THAT(ids(), ElementsAre("TRK-14", "TRK-9")) << "the order stays";
  list.sort({}, false);
  list.search("");
  EXPECT_THAT(ids(), ElementsAre("TRK-14", "TRK-9", "van-1", "SAW", "FAN"));
}

TEST_F(Listed, ShowsBookValuesOfTheYearsEnd) {
  const char* const values[] = {"1,500.00", "0.00", "", "", "0.00"};
  for (std::size_t row = 0; row < list.count(); ++row) {
    EXPECT_EQ(list.text(row, AssetColumn::book_value), values[row]) << row;
  }
}

TEST_F(Listed, AddsUpWhatIsShown) {
  EXPECT_EQ(totalsLine(list.totals()),
            "2 in service · cost 4,000.00 · book value 1,500.00 · 2 disposed of"
            " · 1 not yet in service");
  list.search("trk");
  EXPECT_EQ(totalsLine(list.totals()), "2 in service · cost 4,000.00 · book value 1,500.00");
  list.search("nothing");
  EXPECT_EQ(totalsLine(list.totals()), "0 in service · cost 0.00 · book value 0.00");
}

TEST_F(Listed, SaysSoWhereAmountsAreTooLarge) {
  RegisterOfAssets assets;
  assets.today = Date::strict(2024, 6, 15);
  for (std::int32_t number = 1; number < 3; ++number) {
    SavedAsset saved = assetOf(number, {"A", "", "", "", 2024, 0}).saved();
    saved.basis = Currency::fromTicks(INT64_MAX);
    assets.assets.emplace_back(saved);
  }
  list.setAssets(std::make_shared<const RegisterOfAssets>(assets));
  EXPECT_TRUE(list.totals().too_large);
  EXPECT_EQ(totalsLine(list.totals()), "2 in service · amounts too large to be added up");
}

TEST_F(Listed, KeepsSearchAndOrderWhenTheRegisterChanges) {
  list.search("workshop");
  list.sort(AssetColumn::id, false);
  list.setAssets(registerOf({{"B", "", "", "Workshop", 2024, 1},
                             {"C", "", "", "Office", 2024, 1},
                             {"A", "", "", "Workshop", 2024, 1}}));
  EXPECT_THAT(ids(), ElementsAre("A", "B"));
  list.setAssets(nullptr);
  EXPECT_TRUE(list.isEmpty());
  EXPECT_EQ(list.count(), 0U);
}

TEST(NaturalOrder, ReadsDigitsAsNumbersAndTellsEverythingApart) {
  const char* const ordered[] = {"",
                                 "01",
                                 "1",
                                 "2",
                                 "10",
                                 "a",
                                 "a1",
                                 "a1b",
                                 "a01c",
                                 "a2",
                                 "a10",
                                 "a10b",
                                 "a12345678901234567890",
                                 "aa",
                                 "b"};
  for (int i = 0; i < std::ssize(ordered); ++i) {
    for (int j = 0; j < std::ssize(ordered); ++j) {
      const int expected = i < j ? -1 : i > j ? 1 : 0;
      EXPECT_EQ(naturalOrder(ordered[i], ordered[j]), expected) << ordered[i] << ' ' << ordered[j];
    }
  }
}

/// The total of the list is the depreciation schedule's, and so is every asset's book value.
TEST(AssetListOfRandomRegisters, HasTheFiguresOfTheDepreciationSchedule) {
  constexpr std::size_t book_value = 14;
  int compared = 0;
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    SCOPED_TRACE(seed);
    Random random(seed);
    std::vector<SavedAsset> saved;
    const auto assets = std::make_shared<const RegisterOfAssets>(someRegister(random, saved));
    AssetList list(lower);
    list.setAssets(assets);
    const Report report = scheduleReport(*assets, list.fiscalYear(), Grouping::none);
    const Table& table = report.tables.front();
    ASSERT_EQ(table.columns()[book_value].name, "book_value");
    EXPECT_EQ(Cell(list.totals().book_value), table.total()[book_value]);
    std::size_t listed = 0;
    for (std::size_t row = 0; row < list.count(); ++row) {
      if (list.bookValue(row)) ++listed;
    }
    EXPECT_EQ(listed, table.rowCount());
    for (std::size_t i = 0; i < table.rowCount(); ++i, ++compared) {
      const auto row = list.rowOf(std::get<std::int32_t>(table.row(i)[0]));
      ASSERT_TRUE(row.has_value());
      EXPECT_EQ(Cell(*list.bookValue(*row)), table.row(i)[book_value]);
    }
  }
  EXPECT_GT(compared, 1000);
}

}  // namespace
}  // namespace depcalc::testing
