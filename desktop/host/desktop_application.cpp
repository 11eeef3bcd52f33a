#include "desktop/host/desktop_application.h"

namespace depcalc::desktop {

DesktopApplication::~DesktopApplication() {
  if (company_ != nullptr) company_->close();
}

void DesktopApplication::setCompany(std::unique_ptr<Company> company) {
  if (company_ != nullptr) company_->close();
  company_ = std::move(company);
  if (company_ != nullptr) listeners_.raise(&HostApplicationEvents::CompanyFileOpened);
}

std::shared_ptr<HostCompanyFile> DesktopApplication::CompanyFile() const {
  return company_ == nullptr ? nullptr : company_->file();
}

}  // namespace depcalc::desktop
