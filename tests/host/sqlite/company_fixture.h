// A company file in a directory of its own, and what a test asks of it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "DepCalc/asset_store.h"
#include "DepCalc/units_store.h"
#include "host/sqlite/company_file.h"
#include "host/unit_of_work.h"
#include "tests/DepCalc/store_pair.h"
#include "tests/support/temporary_directory.h"

namespace depcalc::testing_support {

using File = std::shared_ptr<SqliteCompanyFile>;

inline SqliteCompanyFile::Options options(std::string vfs = "", bool writable = true) {
  return {.today = [] { return Date::carrying(2024, 6, 1); },
          .writable = writable,
          .vfs = std::move(vfs)};
}

inline File openOf(const SqliteCompanyFile::Opened& answer) {
  const auto* trouble = std::get_if<FileTrouble>(&answer);
  EXPECT_EQ(trouble, nullptr) << (trouble != nullptr ? trouble->description() : "");
  return trouble == nullptr ? std::get<File>(answer) : nullptr;
}

inline std::optional<FileTrouble> troubleOf(const SqliteCompanyFile::Opened& answer) {
  const auto* trouble = std::get_if<FileTrouble>(&answer);
  return trouble != nullptr ? std::optional(*trouble) : std::nullopt;
}

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class CompanyFile : public ::testing::Test {
 protected:
  File create() { return openOf(SqliteCompanyFile::create(path_, {.name = "Acme"}, options())); }

  /// Saves new assets through the store; answers what it reported.
  static std::vector<std::string> save(const File& file, int assets, double life = 5) {
    std::vector<std::string> reports;
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { reports.push_back(report.text()); });
    StoreState state;
    state.m_orvcf = file;
    AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
    (void)store.open();
    for (int i = 0; i < assets; ++i) {
      state.CurrentRecord = newAsset({.id = "A" + std::to_string(i), .life = life});
      std::int16_t index = 0;
      store.WriteData(index);
    }
    return reports;
  }

  TableContent reread() {
    const File file = openOf(SqliteCompanyFile::open(path_, options()));
    return file != nullptr ? contentOf(*file) : TableContent();
  }

  TemporaryDirectory directory_;
  std::string path_ = directory_.path() + "/acme.company";
};

/// The store of an open company, to save one asset after the other.
class OpenStore {
 public:
  explicit OpenStore(const File& file) {
    state_.m_orvcf = file;
    (void)store_.open();
  }

  /// Saves a new asset; answers what was reported.
  std::vector<std::string> save() {
    std::vector<std::string> reports;
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { reports.push_back(report.text()); });
    state_.CurrentRecord = newAsset({.id = "more"});
    std::int16_t index = 0;
    store_.WriteData(index);
    return reports;
  }

 private:
  StoreState state_;
  AssetStore store_{state_, [] { return Date::carrying(2024, 6, 1); }};
};

/// With twenty assets and the units of two, to be harmed and put right again.
class SampleCompanyFile : public CompanyFile {
 protected:
  static constexpr std::size_t page_size = 8192;

  SampleCompanyFile() {
    const File file = create();
    file->unitOfWork()->begin();
    save(file, 20);
    UnitsStore(file).put(3, {{2024, 1'200}, {2025, 0.5}});
    UnitsStore(file).put(20, {{2026, 999'999'999'999}});
    file->unitOfWork()->end();
    content_ = contentOf(*file);
    file->close();
    bytes_ = bytesOf(path_);
  }

  void restore() const {
    std::filesystem::remove_all(path_);
    for (const char* beside : {"-journal", "-wal", "-shm"}) {
      std::filesystem::remove_all(path_ + beside);
    }
    writeBytes(path_, bytes_);
  }

  std::string bytes_;
  TableContent content_;
};

}  // namespace depcalc::testing_support
