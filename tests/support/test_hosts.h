// The hosts that every test of a host's user runs on.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/failing/failing_host.h"
#include "host/host.h"

namespace depcalc::testing_support {

/// A company file and how to close and open it again, records kept.
class TestHost {
 public:
  virtual ~TestHost() = default;
  [[nodiscard]] virtual std::shared_ptr<HostCompanyFile> file() = 0;
  /// The same file with the failures of `plan`, at the place where this host's own would happen.
  [[nodiscard]] virtual std::shared_ptr<HostCompanyFile> failingFile(
      std::shared_ptr<FailurePlan> plan) {
    return failingCompanyFile(file(), std::move(plan));
  }
  virtual void close() = 0;
  virtual void reopen() = 0;
  /// The company's fiscal year begins on `first_day`, the first of a month, and that is today;
  /// closes and reopens the file where that takes it.
  virtual void fiscalYearStart(Date first_day) = 0;
};

struct HostKind {
  std::string name;
  std::function<std::unique_ptr<TestHost>(Date fiscal_year_start)> make;
  bool has_units = false;
  bool is_failing = false;  ///< wrapped by a failing host that does not fail
  bool keeps_bytes = true;  ///< texts that are no UTF-8 come back as they were; else as U+FFFD

  friend void PrintTo(const HostKind& kind, std::ostream* out) { *out << kind.name; }
};

/// Every kind of host here: memory with and without units of work, alone and behind a failing host
/// that does not fail, and company files.
const std::vector<HostKind>& hostKinds();
/// Those with units of work.
std::vector<HostKind> hostKindsWithUnits();
/// The kind's name as part of a test's name.
std::string testNameOf(const HostKind& kind);

}  // namespace depcalc::testing_support
