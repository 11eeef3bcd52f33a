#include "tests/windows/host/reference_host.h"

#include <memory>
#include <utility>

#include "host/failing/failing_host.h"
#include "host/memory/memory_host.h"
#include "tests/windows/host/served_host.h"
#include "tests/windows/host/text_company_file.h"
#include "windows/host/host_answers.h"
#include "windows/host/stored_variant.h"

namespace depcalc::testing_support {
namespace {

/// One company file at a time, in memory or in a file.
class ReferenceApplication final : public HostApplication {
 public:
  [[nodiscard]] bool IsCompanyFileOpen() const override { return CompanyFile() != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override {
    if (text_ != nullptr) return text_;
    return memory_open_ ? memory_ : nullptr;
  }
  [[nodiscard]] std::string StartDirectory() const override { return "C:\\books"; }
  void advise(HostApplicationEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners_.remove(listener); }

  void open(const std::string& path) {
    close();
    if (path.empty()) {
      memory_->reopen();
      memory_open_ = true;
    } else {
      text_ = std::make_shared<TextCompanyFile>(path, fiscal_year_);
    }
    listeners_.raise(&HostApplicationEvents::CompanyFileOpened);
  }
  void close() {
    if (std::exchange(memory_open_, false)) memory_->close();
    if (const auto closing = std::exchange(text_, nullptr)) closing->close();
  }
  void fiscalYear(Date first_day) {
    fiscal_year_ = first_day;
    memory_->fiscalYearStart(first_day);
    if (text_ != nullptr) text_->fiscalYearStart(first_day);
  }
  MemoryCompanyFile& memory() { return *memory_; }

 private:
  Date fiscal_year_ = Date::strict(2024, 1, 1);
  std::shared_ptr<MemoryCompanyFile> memory_ = std::make_shared<MemoryCompanyFile>(fiscal_year_);
  bool memory_open_ = false;
  std::shared_ptr<TextCompanyFile> text_;
  Listeners<HostApplicationEvents> listeners_;
};

HostPicture pictureOf(const VARIANT& colours) {
  HostPicture picture;
  for (const StoredValue& colour : elementsOf(colours)) {
    picture.colours.push_back(static_cast<std::uint32_t>(colour.asLong()));
  }
  return picture;
}

template <typename Action>
ServedMember steered(const wchar_t* name, Action action) {
  return {name, 1, [action](const Arguments& arguments) {
            action(storedValueOf(*arguments[0]));
            return OwnedVariant();
          }};
}

std::vector<ServedMember> steering(const std::shared_ptr<ReferenceApplication>& application,
                                   const std::shared_ptr<FailurePlan>& plan) {
  return {
      steered(L"Open", [=](const StoredValue& path) { application->open(path.asText()); }),
      steered(L"MultiUser",
              [=](const StoredValue& on) { application->memory().multiUser(on.asDouble() != 0); }),
      steered(L"FiscalYear",
              [=](const StoredValue& day) { application->fiscalYear(day.asDate(Date())); }),
      steered(L"FailAt", [=](const StoredValue& n) { *plan = {.fail_at = n.asLong()}; }),
      {L"Palette", 1,
       [=](const Arguments& arguments) {
         application->memory().palettePicture(pictureOf(*arguments[0]));
         return OwnedVariant();
       }},
      {L"Close", 0,
       [=](const Arguments&) {
         application->close();
         return OwnedVariant();
       }},
      {L"Calls", 0, [=](const Arguments&) { return variantOf(StoredValue::real(plan->calls)); }},
      {L"Die", 0,
       [](const Arguments&) {
         TerminateProcess(GetCurrentProcess(), 1);
         return OwnedVariant();
       }},
  };
}

}  // namespace

Microsoft::WRL::ComPtr<IDispatch> newReferenceHost() {
  const auto application = std::make_shared<ReferenceApplication>();
  const auto plan = std::make_shared<FailurePlan>();
  return servedApplication(failingApplication(application, plan), steering(application, plan));
}

}  // namespace depcalc::testing_support
