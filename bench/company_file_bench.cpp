// company_file_bench DIRECTORY [COUNT]: the company file at the register's capacity, or with so
// many assets, each figure beside plain SQLite moving the same bytes there.
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "DepCalc/asset_store.h"
#include "host/sqlite/company_file.h"
#include "host/unit_of_work.h"

namespace {

using namespace depcalc;
using Clock = std::chrono::steady_clock;

constexpr int assets_at_capacity = 32'766;
constexpr int single_saves = 25;

double seconds(const std::function<void()>& work) {
  const auto began = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - began).count();
}

Date today() { return Date::carrying(2024, 6, 1); }

void report(const char* what, double ours, double plain, const char* asked) {
  std::printf("  %-26s %8.2f ms   plain SQLite %8.2f ms   %5.2f times   asked %s\n", what,
              ours * 1e3, plain * 1e3, ours / plain, asked);
}

/// Lives of 3 to 20 years, every convention and method, starts over twenty years.
CalculateDepPtr randomAsset(std::mt19937& random, int number) {
  const auto pick = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  auto asset = std::make_shared<CalculateDep>();
  asset->RecNew(true);
  asset->AssetID("A" + std::to_string(number));
  asset->AssetName("Asset number " + std::to_string(number));
  asset->ASerial("SN-" + std::to_string(pick(100'000, 999'999)));
  asset->ADept("Department " + std::to_string(pick(1, 20)));
  asset->AssetStartDate(Date::carrying(pick(2004, 2024), pick(1, 12), pick(1, 28)));
  asset->FYEnd(Date::carrying(2023, 12, 31));
  asset->DepRecovery(pick(3, 20));
  asset->DepConvention(std::to_string(pick(0, 4)));
  asset->AssetBasis(Currency::fromTicks(pick(500, 900'000) * std::int64_t{10'000}));
  asset->AssetProdCap(pick(0, 1) == 0 ? "0" : "10000");
  asset->DepMethod(std::vector<std::string>{"SL", "SYD", "DDB", "UOP"}[random() % 4]);
  return asset;
}

void calculate(CalculateDep& asset) {
  const auto straight_line = asset.StraightLine();
  const auto digits = asset.SumofYearsDigits();
  const auto balance = asset.DoubleDecliningBalance();
  (void)asset.UnitsofProduction();
  if (asset.DepMethod() == "UOP") return;
  const auto& amounts = asset.DepMethod() == "SL"    ? straight_line
                        : asset.DepMethod() == "SYD" ? digits
                                                     : balance;
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    asset.DepItem(static_cast<std::int16_t>(i), amounts[i]);
  }
}

std::shared_ptr<SqliteCompanyFile> opened(const SqliteCompanyFile::Opened& answer) {
  if (const auto* trouble = std::get_if<FileTrouble>(&answer)) {
    std::fprintf(stderr, "%s\n", trouble->description().c_str());
    std::exit(3);
  }
  return std::get<std::shared_ptr<SqliteCompanyFile>>(answer);
}

/// A program's view of one company file.
struct Session {
  explicit Session(std::shared_ptr<SqliteCompanyFile> opened_file)
      : file(std::move(opened_file)), store(state, today) {
    state.m_orvcf = file;
    state.CurrentRecord = std::make_shared<CalculateDep>();
    (void)store.open();
  }

  /// As the register loads: the summary, then every asset.
  std::vector<CalculateDepPtr> readAll() {
    store.ReadTableInfo(state.StartYr, state.NumYrs, state.NumAssets, state.FYEnd);
    std::vector<CalculateDepPtr> records;
    for (int i = 1; i <= state.NumAssets; ++i) {
      records.push_back(store.ReadData(static_cast<std::int16_t>(i)));
    }
    records.emplace_back();
    return records;
  }

  void saveAll(const std::vector<CalculateDepPtr>& assets) {
    file->unitOfWork()->begin();
    for (const auto& asset : assets) {
      calculate(*asset);
      state.CurrentRecord = asset;
      std::int16_t index = 0;
      store.WriteData(index);
    }
    file->unitOfWork()->end();
  }

  std::shared_ptr<SqliteCompanyFile> file;
  StoreState state;
  AssetStore store;
};

/// The same texts in a table without digests, locks or checks.
class PlainSqlite {
 public:
  explicit PlainSqlite(std::string path) : path_(std::move(path)) { open(); }
  ~PlainSqlite() { sqlite3_close_v2(db_); }
  PlainSqlite(const PlainSqlite&) = delete;
  PlainSqlite& operator=(const PlainSqlite&) = delete;

  void create() {
    run("PRAGMA page_size = 8192");
    run("CREATE TABLE record (id INTEGER PRIMARY KEY, fields TEXT NOT NULL)");
  }

  void write(const std::vector<std::string>& rows, int first) {
    run("BEGIN");
    sqlite3_stmt* put = prepare("INSERT OR REPLACE INTO record VALUES (?, ?)");
    for (std::size_t i = 0; i < rows.size(); ++i) {
      sqlite3_bind_int64(put, 1, first + static_cast<int>(i));
      sqlite3_bind_text(put, 2, rows[i].data(), static_cast<int>(rows[i].size()), SQLITE_STATIC);
      sqlite3_step(put);
      sqlite3_reset(put);
    }
    sqlite3_finalize(put);
    run("COMMIT");
  }

  std::vector<std::string> readAll() {
    std::vector<std::string> rows;
    sqlite3_stmt* all = prepare("SELECT fields FROM record ORDER BY id");
    while (sqlite3_step(all) == SQLITE_ROW) {
      rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(all, 0)),
                        static_cast<std::size_t>(sqlite3_column_bytes(all, 0)));
    }
    sqlite3_finalize(all);
    return rows;
  }

  void reopen() {
    sqlite3_close_v2(db_);
    open();
  }

 private:
  void open() {
    sqlite3_open(path_.c_str(), &db_);
    run("PRAGMA locking_mode = EXCLUSIVE");
    run("PRAGMA synchronous = EXTRA");
  }
  void run(const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr);
    return statement;
  }

  std::string path_;
  sqlite3* db_ = nullptr;
};

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

class Measurement {
 public:
  Measurement(const std::string& directory, int count)
      : path_(directory + "/capacity.company"), plain_(directory + "/plain.db") {
    std::mt19937 random(20240601);
    for (int i = 1; i <= count; ++i) assets_.push_back(randomAsset(random, i));
    plain_.create();
  }

  void importAll() {
    Session session(opened(SqliteCompanyFile::create(path_, {.name = "Bench"}, options_)));
    const double ours = seconds([&] { session.saveAll(assets_); });
    session.file->close();
    texts_ = PlainSqlite(path_).readAll();
    report("import all", ours, seconds([&] { plain_.write(texts_, 0); }), "3 s");
  }

  void openAndRead() {
    const double ours = seconds([&] {
      session_ = std::make_unique<Session>(opened(SqliteCompanyFile::open(path_, options_)));
      records_ = session_->readAll();
    });
    const double plain = seconds([&] {
      plain_.reopen();
      if (plain_.readAll() != texts_) std::exit(1);
    });
    report("open and read everything", ours, plain, "500 ms");
  }

  void saveSome() {
    std::vector<double> ours;
    std::vector<double> plain;
    for (int i = 0; i < single_saves; ++i) {
      const auto index = 1 + static_cast<std::size_t>(i) * assets_.size() / single_saves;
      // What stays as it is is not written.
      records_[index - 1]->ADept("Moved " + std::to_string(i));
      ours.push_back(seconds([&] { session_->store.DepCalcContSaveRecord(records_[index - 1]); }));
      plain.push_back(seconds([&] { plain_.write({texts_[index]}, static_cast<int>(index)); }));
    }
    report("save one asset, the first", ours.front(), plain.front(), "20 ms");
    report("save one asset, median", median(ours), median(plain), "20 ms");
    report("save one asset, slowest", *std::max_element(ours.begin(), ours.end()),
           *std::max_element(plain.begin(), plain.end()), "20 ms");
  }

  void deleteFirst() {
    records_.erase(records_.begin());
    const double ours = seconds([&] { session_->store.DeleteRecord(records_, 0); });
    report("delete the first asset", ours, seconds([&] { plain_.write(texts_, 0); }), "1 s");
  }

 private:
  std::string path_;
  PlainSqlite plain_;
  SqliteCompanyFile::Options options_{.today = today, .writable = true, .vfs = ""};
  std::vector<CalculateDepPtr> assets_;
  std::vector<std::string> texts_;
  std::unique_ptr<Session> session_;
  std::vector<CalculateDepPtr> records_;
};

}  // namespace

int main(int argc, char** argv) {
  const int count = argc == 3 ? std::atoi(argv[2]) : assets_at_capacity;
  if (argc < 2 || argc > 3 || count < 1 || count > assets_at_capacity) {
    std::fprintf(stderr, "usage: company_file_bench DIRECTORY [COUNT]\n");
    return 2;
  }
  Measurement measurement(argv[1], count);
  measurement.importAll();
  measurement.openAndRead();
  measurement.saveSome();
  measurement.deleteFirst();
  return 0;
}
