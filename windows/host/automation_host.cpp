#include "windows/host/automation_host.h"

#include <memory>
#include <optional>
#include <utility>

#include "host/listeners.h"
#include "values/runtime_error.h"
#include "windows/host/automation_object.h"
#include "windows/host/automation_table.h"
#include "windows/host/host_answers.h"
#include "windows/host/host_events.h"
#include "windows/host/palette_picture.h"
#include "windows/host/stored_variant.h"

namespace depcalc {
namespace {

/// The listeners of one object of the host. It is connected to while there is a listener. An event
/// may end the object that raises it, so the listeners are held while they are told.
template <typename Events>
class HostListeners {
 public:
  HostListeners(const HostEvent& event, void (Events::*told)()) : event_(event), told_(told) {}

  void add(const AutomationObject& source, Events& listener) {
    if (source.object() == nullptr) throw RuntimeError::objectNotSet();
    if (!connection_) connect(*source.object().Get());
    listeners_->add(listener);
    ++count_;
  }
  void remove(Events& listener) {
    listeners_->remove(listener);
    if (count_ > 0 && --count_ == 0) connection_.reset();
  }

 private:
  void connect(IDispatch& source) {
    const std::weak_ptr<Listeners<Events>> listeners = listeners_;
    connection_.emplace(source, event_, [listeners, told = told_] {
      if (const auto held = listeners.lock()) held->raise(told);
    });
  }

  const HostEvent& event_;
  void (Events::*told_)();
  std::shared_ptr<Listeners<Events>> listeners_ = std::make_shared<Listeners<Events>>();
  int count_ = 0;
  std::optional<HostEventConnection> connection_;
};

class AutomationCompanyFile final : public HostCompanyFile {
 public:
  explicit AutomationCompanyFile(AutomationObject::Dispatch file) : file_(std::move(file)) {}

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override {
    const OwnedVariant table_name = variantOf(StoredValue::text(std::string(name)));
    return automationTable(objectIn(file_.call(HostRole::OpenTable, table_name)));
  }
  [[nodiscard]] Date FiscalYearStart() const override {
    return dateIn(file_.call(HostRole::FiscalYearStart));
  }
  [[nodiscard]] bool IsMultiUser() const override {
    return booleanIn(file_.call(HostRole::IsMultiUser));
  }
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override {
    return pictureIn(file_.call(HostRole::PalettePicture));
  }
  [[nodiscard]] HostUnitOfWork* unitOfWork() override { return nullptr; }
  void advise(HostCompanyFileEvents& listener) override { listeners_.add(file_, listener); }
  void unadvise(HostCompanyFileEvents& listener) override { listeners_.remove(listener); }

 private:
  AutomationObject file_;
  HostListeners<HostCompanyFileEvents> listeners_{company_file_closing,
                                                  &HostCompanyFileEvents::CompanyFileClosing};
};

class AutomationApplication final : public HostApplication {
 public:
  explicit AutomationApplication(AutomationObject::Dispatch application)
      : application_(std::move(application)) {}

  [[nodiscard]] bool IsCompanyFileOpen() const override {
    return booleanIn(application_.call(HostRole::IsCompanyFileOpen));
  }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override {
    auto file = objectIn(application_.call(HostRole::CompanyFile));
    if (file == nullptr) return nullptr;
    return std::make_shared<AutomationCompanyFile>(std::move(file));
  }
  [[nodiscard]] std::string StartDirectory() const override {
    return storedValueOf(application_.call(HostRole::StartDirectory).get()).asText();
  }
  void advise(HostApplicationEvents& listener) override { listeners_.add(application_, listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners_.remove(listener); }

 private:
  AutomationObject application_;
  HostListeners<HostApplicationEvents> listeners_{company_file_opened,
                                                  &HostApplicationEvents::CompanyFileOpened};
};

}  // namespace

std::shared_ptr<HostApplication> automationApplication(IDispatch* application) {
  return std::make_shared<AutomationApplication>(application);
}

std::shared_ptr<HostCompanyFile> automationCompanyFile(IDispatch* file) {
  return std::make_shared<AutomationCompanyFile>(file);
}

}  // namespace depcalc
