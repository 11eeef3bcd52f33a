#include "tests/support/test_hosts.h"

#include <algorithm>

#include "host/failing/failing_host.h"
#include "host/fiscal_year.h"
#include "host/memory/memory_host.h"
#include "host/sqlite/company_file.h"
#include "tests/support/temporary_directory.h"

namespace depcalc::testing_support {
namespace {

/// On the day on which a fiscal year begins.
Date handedOut(Date first_day) { return currentFiscalYearStart(first_day.month(), first_day); }

class MemoryTestHost final : public TestHost {
 public:
  MemoryTestHost(Date fiscal_year_start, MemoryCompanyFile::Units units, bool behind_failing)
      : memory_(std::make_shared<MemoryCompanyFile>(handedOut(fiscal_year_start), units)),
        file_(memory_) {
    if (behind_failing) file_ = failingCompanyFile(memory_, std::make_shared<FailurePlan>());
  }

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  void close() override { memory_->close(); }
  void reopen() override { memory_->reopen(); }
  void fiscalYearStart(Date first_day) override { memory_->fiscalYearStart(handedOut(first_day)); }

 private:
  std::shared_ptr<MemoryCompanyFile> memory_;
  std::shared_ptr<HostCompanyFile> file_;
};

class SqliteTestHost final : public TestHost {
 public:
  explicit SqliteTestHost(Date fiscal_year_start) : today_(fiscal_year_start) {
    file_ = opened(SqliteCompanyFile::create(
        path(), {.name = "Test", .first_month = fiscal_year_start.month()}, options()));
  }

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  void close() override { file_->close(); }
  void reopen() override { file_ = opened(SqliteCompanyFile::open(path(), options())); }
  void fiscalYearStart(Date first_day) override {
    today_ = first_day;
    CompanyInfo info = file_->info();
    info.first_month = first_day.month();
    file_->info(info);
  }

 private:
  [[nodiscard]] std::string path() const { return directory_.path() + "/test.company"; }
  [[nodiscard]] SqliteCompanyFile::Options options() const {
    return {.today = [this] { return today_; }, .writable = true, .vfs = ""};
  }
  static std::shared_ptr<SqliteCompanyFile> opened(const SqliteCompanyFile::Opened& answer) {
    if (const auto* trouble = std::get_if<FileTrouble>(&answer)) throw FileTrouble(*trouble);
    return std::get<std::shared_ptr<SqliteCompanyFile>>(answer);
  }

  Date today_;
  TemporaryDirectory directory_;
  std::shared_ptr<SqliteCompanyFile> file_;
};

HostKind memoryKind(std::string name, MemoryCompanyFile::Units units, bool behind_failing) {
  return {std::move(name),
          [=](Date fiscal_year_start) {
            return std::make_unique<MemoryTestHost>(fiscal_year_start, units, behind_failing);
          },
          units == MemoryCompanyFile::Units::offered, behind_failing};
}

}  // namespace

const std::vector<HostKind>& hostKinds() {
  using Units = MemoryCompanyFile::Units;
  static const std::vector<HostKind> kinds{
      memoryKind("memory", Units::none, false),
      memoryKind("memory with units", Units::offered, false),
      memoryKind("memory behind failing", Units::none, true),
      memoryKind("memory with units behind failing", Units::offered, true),
      {"sqlite", [](Date start) { return std::make_unique<SqliteTestHost>(start); }, true, false},
  };
  return kinds;
}

std::vector<HostKind> hostKindsWithUnits() {
  std::vector<HostKind> kinds;
  for (const HostKind& kind : hostKinds()) {
    if (kind.has_units) kinds.push_back(kind);
  }
  return kinds;
}

std::string testNameOf(const HostKind& kind) {
  std::string name = kind.name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
}

}  // namespace depcalc::testing_support
