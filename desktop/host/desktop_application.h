// The host application that the calculator sees.
#pragma once

#include "desktop/host/company_files.h"
#include "host/listeners.h"

namespace depcalc::desktop {

/// Has at most one company open.
class DesktopApplication final : public HostApplication {
 public:
  explicit DesktopApplication(std::string start_directory)
      : start_directory_(std::move(start_directory)) {}
  ~DesktopApplication() override;

  [[nodiscard]] Company* company() const { return company_.get(); }
  /// Closes the company that is open and takes this one, which may be none.
  void setCompany(std::unique_ptr<Company> company);

  [[nodiscard]] bool IsCompanyFileOpen() const override { return company_ != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override;
  [[nodiscard]] std::string StartDirectory() const override { return start_directory_; }
  void advise(HostApplicationEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners_.remove(listener); }

 private:
  std::string start_directory_;
  std::unique_ptr<Company> company_;
  Listeners<HostApplicationEvents> listeners_;
};

}  // namespace depcalc::desktop
