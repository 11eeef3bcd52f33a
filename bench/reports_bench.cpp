// reports_bench FILE.company: reading a register for its reports and making each of them as CSV,
// beside plain SQLite reading the same records.
#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "host/sqlite/company_file.h"
#include "reports/asset_card.h"
#include "reports/formats/csv.h"
#include "reports/journal.h"
#include "reports/reading/register_reading.h"
#include "reports/register_check.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"

namespace {

using namespace depcalc;

double milliseconds(const std::function<void()>& work) {
  const auto began = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - began;
  return took.count();
}

Date today() { return Date::strict(2024, 6, 30); }

/// All bytes of all records, moved into texts.
void readPlainly(const std::string& path) {
  sqlite3* database = nullptr;
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK ||
      sqlite3_prepare_v2(database, "SELECT id, fields FROM record ORDER BY id", -1, &statement,
                         nullptr) != SQLITE_OK) {
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(database));
    std::exit(3);
  }
  std::string texts;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    texts.append(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)),
                 static_cast<std::size_t>(sqlite3_column_bytes(statement, 1)));
  }
  sqlite3_finalize(statement);
  sqlite3_close_v2(database);
}

RegisterOfAssets read(const std::string& path) {
  const auto opened = SqliteCompanyFile::open(path, {.today = today, .writable = false, .vfs = {}});
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) {
    std::fprintf(stderr, "%s\n", trouble->description().c_str());
    std::exit(3);
  }
  return readRegisterOfAssets(std::get<std::shared_ptr<SqliteCompanyFile>>(opened), "", today());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string path(argv[1]);
  RegisterOfAssets assets;
  const double plain = milliseconds([&] { readPlainly(path); });
  const double reading = milliseconds([&] { assets = read(path); });
  std::printf("  opening and reading %zu assets %8.1f ms   plain SQLite %8.1f ms\n",
              assets.assets.size(), reading, plain);
  const auto make = [&](const char* kind, const std::function<Report()>& report) {
    std::size_t size = 0;
    const double took = milliseconds([&] { size = csvReport(report(), CsvFields(false)).size(); });
    std::printf("  %-12s %8.1f ms, %8.1f ms with the reading, %zu bytes\n", kind, took,
                reading + took, size);
  };
  const Grouping by = Grouping::department;
  make("schedule", [&] { return scheduleReport(assets, 2024, by); });
  make("years", [&] { return yearsReport(assets, rangeOfYears(assets, {}, {}), by); });
  make("rollforward", [&] { return rollforwardReport(assets, 2024, by); });
  make("journal", [&] { return journalReport(assets, 2024, by, {}); });
  make("asset", [&] { return *assetReport(assets, 1); });
  make("check", [&] { return checkReport(assets).report; });
}
