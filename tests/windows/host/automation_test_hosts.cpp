#include "tests/windows/host/automation_test_hosts.h"

#include <algorithm>
#include <utility>

#include "host/fiscal_year.h"
#include "host/memory/memory_host.h"
#include "tests/windows/host/served_host.h"
#include "windows/host/automation_host.h"

namespace depcalc::testing_support {
namespace {

/// On the day on which a fiscal year begins.
Date handedOut(Date first_day) { return currentFiscalYearStart(first_day.month(), first_day); }

class InProcessHost final : public TestHost {
 public:
  explicit InProcessHost(Date fiscal_year_start)
      : memory_(std::make_shared<MemoryCompanyFile>(handedOut(fiscal_year_start))),
        file_(throughAutomation(memory_)) {}

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  /// The failures come from behind the automation objects, as exceptions.
  std::shared_ptr<HostCompanyFile> failingFile(std::shared_ptr<FailurePlan> plan) override {
    return throughAutomation(failingCompanyFile(memory_, std::move(plan)));
  }
  void close() override { memory_->close(); }
  void reopen() override { memory_->reopen(); }
  void fiscalYearStart(Date first_day) override { memory_->fiscalYearStart(handedOut(first_day)); }

 private:
  static std::shared_ptr<HostCompanyFile> throughAutomation(std::shared_ptr<HostCompanyFile> file) {
    return automationCompanyFile(servedCompanyFile(std::move(file)).Get());
  }

  std::shared_ptr<MemoryCompanyFile> memory_;
  std::shared_ptr<HostCompanyFile> file_;
};

}  // namespace

HostKind inProcessKind() {
  return {.name = "automation",
          .make = [](Date start) { return std::make_unique<InProcessHost>(start); },
          .keeps_bytes = false};
}

std::vector<HostKind> hostKindsWithUnits() { return {}; }

std::string testNameOf(const HostKind& kind) {
  std::string name = kind.name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
}

}  // namespace depcalc::testing_support
