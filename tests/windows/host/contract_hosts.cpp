// What the promises of every host are tried on: company files in memory and in a file.
#include <filesystem>
#include <utility>

#include "host/fiscal_year.h"
#include "tests/windows/host/automation_test_hosts.h"
#include "tests/windows/host/served_host.h"
#include "tests/windows/host/text_company_file.h"
#include "windows/host/automation_host.h"

namespace depcalc::testing_support {
namespace {

/// A company file of text behind automation objects.
class TextTestHost final : public TestHost {
 public:
  explicit TextTestHost(Date fiscal_year_start) {
    std::filesystem::remove(path());
    start_ = handedOut(fiscal_year_start);
    reopen();
  }
  ~TextTestHost() override { std::filesystem::remove(path()); }

  std::shared_ptr<HostCompanyFile> file() override { return automation_; }
  void close() override { text_->close(); }
  void reopen() override {
    text_ = std::make_shared<TextCompanyFile>(path(), start_);
    automation_ = automationCompanyFile(servedCompanyFile(text_).Get());
  }
  void fiscalYearStart(Date first_day) override {
    start_ = handedOut(first_day);
    text_->fiscalYearStart(start_);
  }

 private:
  static Date handedOut(Date first_day) {
    return currentFiscalYearStart(first_day.month(), first_day);
  }
  static std::string path() {
    return (std::filesystem::temp_directory_path() / "automation_host_test.txt").string();
  }

  Date start_;
  std::shared_ptr<TextCompanyFile> text_;
  std::shared_ptr<HostCompanyFile> automation_;
};

}  // namespace

const std::vector<HostKind>& hostKinds() {
  static const std::vector<HostKind> kinds{
      inProcessKind(),
      {.name = "automation with a file",
       .make = [](Date start) { return std::make_unique<TextTestHost>(start); },
       .keeps_bytes = false},
  };
  return kinds;
}

}  // namespace depcalc::testing_support
