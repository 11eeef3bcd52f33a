// Companies on a server, for the tests of every host.
#include "host/fiscal_year.h"
#include "tests/host/postgresql/test_server.h"
#include "tests/support/test_hosts.h"

namespace depcalc::testing_support {
namespace {

class ServerTestHost final : public TestHost {
 public:
  explicit ServerTestHost(Date fiscal_year_start) : today_(fiscal_year_start) {
    CompanyInfo info{.name = "Test"};
    info.first_month = fiscal_year_start.month();
    file_ = openOf(PostgresCompanyFile::create(address_, info, options()));
  }

  std::shared_ptr<HostCompanyFile> file() override { return file_; }
  void close() override { file_->close(); }
  void reopen() override { file_ = openOf(PostgresCompanyFile::open(address_, options())); }
  void fiscalYearStart(Date first_day) override {
    today_ = first_day;
    CompanyInfo info = file_->info();
    info.first_month = first_day.month();
    file_->info(info);
  }

 private:
  [[nodiscard]] PostgresCompanyFile::Options options() const {
    PostgresCompanyFile::Options options = serverOptions();
    options.opening.today = [this] { return today_; };
    return options;
  }

  Date today_;
  std::string address_ = newAddress();
  ServerFile file_;
};

}  // namespace

const std::vector<HostKind>& hostKinds() {
  static const std::vector<HostKind> kinds{
      {"server", [](Date start) { return std::make_unique<ServerTestHost>(start); }, true, false}};
  return kinds;
}

std::vector<HostKind> hostKindsWithUnits() { return hostKinds(); }

std::string testNameOf(const HostKind& kind) { return kind.name; }

}  // namespace depcalc::testing_support
