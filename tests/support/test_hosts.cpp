#include "tests/support/test_hosts.h"

#include <algorithm>

#include "host/failing/failing_host.h"
#include "host/memory/memory_host.h"

namespace depcalc::testing_support {
namespace {

class MemoryTestHost final : public TestHost {
 public:
  MemoryTestHost(Date fiscal_year_start, MemoryCompanyFile::Units units, bool behind_failing)
      : memory_(std::make_shared<MemoryCompanyFile>(fiscal_year_start, units)), file_(memory_) {
    if (behind_failing) file_ = failingCompanyFile(memory_, std::make_shared<FailurePlan>());
  }

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  void close() override { memory_->close(); }
  void reopen() override { memory_->reopen(); }
  void fiscalYearStart(Date first_day) override { memory_->fiscalYearStart(first_day); }

 private:
  std::shared_ptr<MemoryCompanyFile> memory_;
  std::shared_ptr<HostCompanyFile> file_;
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
