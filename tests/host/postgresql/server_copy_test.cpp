// Companies copied between files and servers: all of it, or nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <random>

#include "host/places/company_places.h"
#include "host/stored/copied_tables.h"
#include "tests/host/postgresql/failing_libpq.h"
#include "tests/host/postgresql/server_fixture.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using namespace testing_support;
using FilePtr = std::shared_ptr<StoredCompanyFile>;

const Date today = Date::carrying(2024, 6, 1);

FilePtr opened(const OpenedCompanyFile& answer) {
  if (const auto* trouble = std::get_if<FileTrouble>(&answer)) throw FileTrouble(*trouble);
  return std::get<FilePtr>(answer);
}

std::string troubleOf(const OpenedCompanyFile& answer) {
  const auto* trouble = std::get_if<FileTrouble>(&answer);
  return trouble != nullptr ? trouble->description() : "";
}

/// Values of every type, under names with every kind of character, in any order.
class RandomCompany {
 public:
  explicit RandomCompany(unsigned seed) : random_(seed) {}

  CompanyInfo info() {
    CompanyInfo info{.name = text()};
    info.first_month = 1 + number(12);
    info.multi_user = number(2) == 1;
    return info;
  }
  void fill(StoredCompanyFile& file) {
    file.unitOfWork()->begin();
    for (const char* const table : {"ZEM:DepCalc", "UnitsProduced", "Something else"}) {
      if (number(4) == 0) continue;
      for (int left = number(12); left > 0; --left) {
        const auto index = static_cast<std::int16_t>(number(2) == 0 ? number(20) : number(32'768));
        if (!file.OpenTable(table)->Exists(index)) fillRecord(*file.OpenTable(table)->Add(index));
      }
    }
    file.unitOfWork()->end();
  }

 private:
  int number(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::string text() {
    constexpr const char* pieces[] = {"a",  "Z",  " ",       "'",        "\"",
                                      "\\", "\n", "\x01",    "\xC3\xA4", "\xF0\x9F\x9A\x9A",
                                      "{",  ",",  "\\udc41", "NULL"};
    std::string text;
    for (int left = number(8); left > 0; --left) text += pieces[number(std::size(pieces))];
    return text;
  }
  StoredValue value() {
    switch (number(7)) {
      case 0:
        return {};
      case 1:
        return StoredValue::integer(static_cast<std::int16_t>(number(65'536) - 32'768));
      case 2:
        return StoredValue::real(std::ldexp(number(1'000'000) - 500'000, number(600) - 300));
      case 3:
        return StoredValue::currency(Currency::fromTicks(
            static_cast<std::int64_t>(std::uint64_t{random_()} << 32U | random_())));
      case 4:
        return StoredValue::date(Date::carrying(100 + number(9'900), 1, 1 + number(365)));
      case 5:
        return StoredValue::text(text() + "\xFF" + std::string(1, '\0'));
      default:
        return StoredValue::text(text());
    }
  }
  void fillRecord(HostRecord& record) {
    for (int left = number(6); left > 0; --left) record.Fields().SetValue("N" + text(), value());
    record.Modified(true);
    record.Commit();
  }

  std::mt19937 random_;
};

/// Every table with its records, their names in order, types and values.
std::string allOf(StoredCompanyFile& file) {
  std::string all = file.info().name + std::to_string(file.info().first_month) +
                    (file.info().multi_user ? "m\n" : "s\n");
  for (const std::string& name : file.tableNames()) {
    const auto table = file.OpenTable(name);
    if (table->Count() > 0) all += name + '\n';
    for (std::int32_t i = 0; i <= INT16_MAX; ++i) {
      const auto index = static_cast<std::int16_t>(i);
      if (!table->Exists(index)) continue;
      const auto record = table->Item(index);
      all += std::to_string(i);
      for (const std::string& field : record->Fields().names()) {
        const StoredValue value = record->Fields().GetValue(field);
        all.append(" ").append(field).append("=").append(value.typeName()) += ':' + value.asText();
      }
      all += '\n';
    }
  }
  return all;
}

class ServerCopies : public OnServer {
 protected:
  std::string newPath() { return directory_.path() + "/" + std::to_string(++number_) + ".company"; }

  TemporaryDirectory directory_;
  int number_ = 0;
};

TEST_F(ServerCopies, OfRandomCompaniesAreTheSameBothWays) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  RandomCompany random(seed);
  for (int i = 0; i < 25; ++i) {
    const FilePtr file = opened(createCompany(newPath(), random.info(), placesOn(today)));
    random.fill(*file);
    const std::string all = allOf(*file);
    const std::string address = newAddress();
    const FilePtr there = opened(createCopy(address, *file, placesOn(today)));
    ASSERT_EQ(allOf(*there), all) << "seed " << seed;
    there->close();
    const FilePtr again = opened(openCompany(address, placesOn(today)));
    ASSERT_EQ(allOf(*again), all) << "seed " << seed;
    const std::string path = newPath();
    ASSERT_EQ(allOf(*opened(createCopy(path, *again, placesOn(today)))), all) << "seed " << seed;
    ASSERT_EQ(allOf(*opened(openCompany(path, placesOn(today)))), all) << "seed " << seed;
    const FilePtr twin = opened(createCopy(newAddress(), *again, placesOn(today)));
    ASSERT_EQ(allOf(*twin), all) << "seed " << seed;
  }
}

TEST_F(ServerCopies, LeaveAloneWhatIsThere) {
  const ServerFile file = open();
  EXPECT_THAT(troubleOf(createCopy(address_, *file, placesOn(today))), HasSubstr("already exists"));
  const std::string path = newPath();
  opened(createCopy(path, *file, placesOn(today)))->close();
  EXPECT_THAT(troubleOf(createCopy(path, *file, placesOn(today))),
              HasSubstr(path + " already exists"));
  EXPECT_THAT(troubleOf(createCopy(directory_.path() + "/no/such.company", *file, placesOn(today))),
              HasSubstr("/no"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.path()), {}), 1);
}

/// Whichever call fails: the whole company is there, or none of it.
TEST_F(ServerCopies, AppearWholeOrNotAtAll) {
  const FilePtr source = opened(createCompany(newPath(), {.name = "Source"}, placesOn(today)));
  ASSERT_THAT(saveAtOnce(source, 30, "S"), IsEmpty());
  const std::string all = allOf(*source);
  FailingLibpq failing;
  PostgresCompanyFile::Options options = serverOptions();
  options.libpq = &failing.functions();
  options.patience = std::chrono::milliseconds(50);
  int appeared = 0;
  int absent = 0;
  for (const LibpqFailure failure :
       {LibpqFailure::before, LibpqFailure::after, LibpqFailure::refused, LibpqFailure::memory}) {
    for (int call = 1;; ++call) {
      const std::string address = newAddress();
      failing.failAt(call, failure, true);
      const auto made =
          PostgresCompanyFile::create(address, source->info(), options,
                                      [&](StoredCompanyFile& file) { copyCompany(*source, file); });
      const bool over = failing.calls() < call;
      failing.failAt(0, failure, false);
      const bool acknowledged = std::holds_alternative<ServerFile>(made);
      if (acknowledged) std::get<ServerFile>(made)->close();
      const auto found = openCompany(address, placesOn(today));
      const bool is_there = std::holds_alternative<FilePtr>(found);
      if (is_there) {
        ASSERT_EQ(allOf(*std::get<FilePtr>(found)), all);
      }
      ASSERT_TRUE(is_there || !acknowledged);
      (is_there ? appeared : absent) += 1;
      if (over) break;
    }
  }
  EXPECT_GE(appeared, 4);
  EXPECT_GT(absent, 20);
}

}  // namespace
}  // namespace depcalc
