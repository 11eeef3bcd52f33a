// What the calculator has saved comes back from a list.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <variant>

#include "cli/company.h"
#include "host/sqlite/company_file.h"
#include "importing/asset_saving.h"
#include "tests/cli/list_and_import.h"

namespace depcalc {
namespace {

using testing_support::ListAndImport;

const Date today = Date::strict(2024, 6, 1);

std::string utf8(char32_t c) {
  const auto byte = [](char32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(bits));
  };
  if (c < 0x80) return {byte(c)};
  if (c < 0x800) return {byte(0xC0 | c >> 6), byte(0x80 | (c & 0x3F))};
  return {byte(0xE0 | c >> 12), byte(0x80 | (c >> 6 & 0x3F)), byte(0x80 | (c & 0x3F))};
}

/// Characters that mean something to a CSV file or a spreadsheet, control characters, and others.
rc::Gen<std::string> anyText() {
  const auto character = rc::gen::map(
      rc::gen::oneOf(rc::gen::elementOf(std::u32string(U"'=+-@\t\r\n,;\" a0")),
                     rc::gen::inRange<char32_t>(1, 0x7F), rc::gen::inRange<char32_t>(0x80, 0xD800)),
      utf8);
  const auto text = rc::gen::map(rc::gen::container<std::vector<std::string>>(character),
                                 [](const std::vector<std::string>& characters) {
                                   std::string joined;
                                   for (const std::string& each : characters) joined += each;
                                   return joined;
                                 });
  // Longer than any field of a form, and than what other files may have in one.
  const auto giant = rc::gen::map(rc::gen::inRange(1, 150'000), [](int length) {
    return std::string(static_cast<std::size_t>(length), 'x') + "\",";
  });
  return rc::gen::weightedOneOf<std::string>(
      {{3, rc::gen::just(std::string())}, {12, text}, {1, giant}});
}

rc::Gen<Date> anyDate(int first_year, int last_year) {
  const int first = Date::strict(first_year, 1, 1).dayNumber();
  const int last = Date::strict(last_year, 12, 31).dayNumber();
  return rc::gen::map(rc::gen::inRange(first, last + 1),
                      [](int day) { return Date::fromDayNumber(day); });
}

Currency cents(int amount) { return Currency::fromTicks(std::int64_t{amount} * 100); }

/// An asset as the form lets it be saved: with a date alone, or with a method and all that a
/// calculation asks for.
CalculateDepPtr anyAsset() {
  const auto asset = std::make_shared<CalculateDep>();
  const std::string method =
      *rc::gen::elementOf(std::vector<std::string>{"", "SL", "SYD", "DDB", "UOP"});
  const bool chosen = !method.empty();
  asset->DepMethod(method);
  asset->AssetID(*anyText());
  asset->AssetName(*anyText());
  asset->ASerial(*anyText());
  asset->ADept(*anyText());
  // Seldom far away, since a register is as wide as its assets are apart. A schedule needs a year
  // to spare at both ends of the calendar.
  asset->AssetStartDate(*rc::gen::weightedOneOf<Date>(
      {{60, anyDate(1940, 2090)}, {1, chosen ? anyDate(102, 9'940) : anyDate(100, 9'999)}}));
  asset->FYEnd(
      *rc::gen::oneOf(anyDate(100, 9'999), anyDate(2023, 2024),
                      rc::gen::elementOf(std::vector<Date>{Date(), Date::strict(2024, 2, 29),
                                                           Date::strict(2023, 12, 31)})));
  asset->DepRecovery(*rc::gen::inRange(chosen ? 1 : 0, 51));
  asset->DepConvention(std::to_string(*rc::gen::inRange(0, 5)));
  const int basis = *rc::gen::oneOf(rc::gen::inRange(chosen ? 1 : 0, 1'000'000'000),
                                    rc::gen::just(chosen ? 1 : 0));
  asset->AssetBasis(cents(basis));
  // Beside an empty basis any salvage value is good.
  asset->AssetSalvage(cents(*rc::gen::inRange(0, basis == 0 ? 1'000'000'000 : basis + 1)));
  asset->AssetProdCap(*rc::gen::elementOf(
      std::vector<std::string>{"0", "1", "9000", "1,234,567", "999999999999999", "1E+25"}));
  return asset;
}

class SavedAssets : public ListAndImport {
 protected:
  void TestBody() override {}

  /// Through the store, as the calculator saves them.
  void save(const std::vector<CalculateDepPtr>& assets) {
    const auto made =
        SqliteCompanyFile::create(path("a.company"), {.name = "A", .first_month = 1},
                                  {.today = [] { return today; }, .writable = true, .vfs = {}});
    const auto file = std::get<std::shared_ptr<SqliteCompanyFile>>(made);
    Company company(file, "a.company", today);
    RC_ASSERT(!saveAssets(company, assets, true, [](std::size_t) {}));
    file->close();
  }

 public:
  /// What the file holds after each of the two ways.
  void comeBack(const std::vector<CalculateDepPtr>& assets) {
    save(assets);
    const std::string saved = dumpOf("a.company");
    copy("a.company", "b.company", {});
    RC_ASSERT(dumpOf("b.company") == saved);
    copy("a.company", "c.company", {"--raw"});
    RC_ASSERT(dumpOf("c.company") == saved);
  }
};

TEST(RoundTrip, ListAndImportGiveBackWhateverTheCalculatorSaved) {
  EXPECT_TRUE(rc::check([] {
    std::vector<CalculateDepPtr> assets;
    const int count = *rc::gen::inRange(1, 8);
    for (int i = 0; i < count; ++i) assets.push_back(anyAsset());
    SavedAssets().comeBack(assets);
  }));
}

/// What a user does who pastes a long ID and saves with a date alone.
TEST_F(ListAndImport, GiveBackALongIdThatWasSavedWithADateAlone) {
  const auto asset = std::make_shared<CalculateDep>();
  asset->AssetID("AN ID OF THIRTY CHARACTERS, IT");
  asset->AssetStartDate(Date::strict(1950, 1, 1));
  asset->FYEnd(Date::strict(2024, 2, 29));
  {
    const auto made =
        SqliteCompanyFile::create(path("a.company"), {.name = "A", .first_month = 1},
                                  {.today = [] { return today; }, .writable = true, .vfs = {}});
    Company company(std::get<std::shared_ptr<SqliteCompanyFile>>(made), "a.company", today);
    ASSERT_EQ(saveAssets(company, {asset}, true, [](std::size_t) {}), std::nullopt);
  }
  const std::string saved = dumpOf("a.company");
  ASSERT_NO_FATAL_FAILURE(copy("a.company", "b.company", {}));
  EXPECT_EQ(dumpOf("b.company"), saved);
}

}  // namespace
}  // namespace depcalc
