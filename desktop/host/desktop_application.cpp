#include "desktop/host/desktop_application.h"

#include <ctime>

#include "changes/company_steps.h"
#include "common/trapped.h"
#include "host/unit_of_work.h"

namespace depcalc::desktop {
namespace {

/// The calculator may hold on to the file of a company that is closed.
std::shared_ptr<Company> stillOpen(const std::weak_ptr<Company>& company) {
  auto open = company.lock();
  if (open == nullptr) throw RuntimeError::objectNotSet();
  return open;
}

std::shared_ptr<Recorder> recorded(const std::shared_ptr<Company>& company,
                                   DesktopApplication::Past past,
                                   const DesktopApplication::Now& now) {
  const std::weak_ptr<Company> own = company;
  return std::make_shared<Recorder>(
      company->file(),
      Recorder::Options{
          .tables = followedTables(),
          .info = {.read = [own] { return stillOpen(own)->info(); },
                   .write = [own](const CompanyInfo& info) { stillOpen(own)->setInfo(info); }},
          .path = std::move(past.history),
          .now = now,
          .name = stepTitle,
          .replaced = std::move(past.replaced)});
}

}  // namespace

std::int64_t secondsByClock() { return std::time(nullptr); }

DesktopApplication::~DesktopApplication() {
  if (company_ != nullptr) company_->close();
}

void DesktopApplication::setCompany(std::unique_ptr<Company> company, Past past) {
  if (company_ != nullptr) company_->close();
  company_ = std::move(company);
  recorder_ = company_ == nullptr ? nullptr : recorded(company_, std::move(past), now_);
  file_ = company_ == nullptr ? nullptr : std::make_shared<UnitsFollowing>(recorder_);
  if (company_ != nullptr) listeners_.raise(&HostApplicationEvents::CompanyFileOpened);
}

std::optional<std::uint64_t> DesktopApplication::revision() const {
  if (file_ == nullptr || file_->unitOfWork() == nullptr) return std::nullopt;
  return file_->unitOfWork()->revision();
}

void DesktopApplication::setInfo(const CompanyInfo& info) {
  if (trapped("DepCalcDesktop::setInfo", [&] { recorder_->setInfo(info); })) return;
  throw CompanyFileError(
      company_->takeTrouble().value_or(company_->path() + " could not be written."));
}

void DesktopApplication::called(StepKind kind, const std::function<void()>& change) {
  recorder_ == nullptr ? change() : recorder_->called(kind, change);
}

void DesktopApplication::deletion(std::int32_t number, const std::function<void()>& deletes) {
  file_ == nullptr ? deletes() : file_->deletion(number, deletes);
}

std::shared_ptr<HostCompanyFile> DesktopApplication::CompanyFile() const { return file_; }

}  // namespace depcalc::desktop
