#include "desktop/host/desktop_application.h"

namespace depcalc::desktop {

DesktopApplication::~DesktopApplication() {
  if (company_ != nullptr) company_->close();
}

void DesktopApplication::setCompany(std::unique_ptr<Company> company) {
  if (company_ != nullptr) company_->close();
  file_ = company == nullptr ? nullptr : std::make_shared<UnitsFollowing>(company->file());
  company_ = std::move(company);
  if (company_ != nullptr) listeners_.raise(&HostApplicationEvents::CompanyFileOpened);
}

void DesktopApplication::deletion(std::int32_t number, const std::function<void()>& deletes) {
  file_ == nullptr ? deletes() : file_->deletion(number, deletes);
}

std::shared_ptr<HostCompanyFile> DesktopApplication::CompanyFile() const { return file_; }

}  // namespace depcalc::desktop
