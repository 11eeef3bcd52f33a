#include "tests/host/postgresql/server_drive_host.h"

#include <utility>
#include <variant>

#include "host/listeners.h"
#include "tests/host/postgresql/test_server.h"
#include "values/runtime_error.h"

namespace depcalc::drive {

class ServerDriveHost::Application final : public HostApplication {
 public:
  [[nodiscard]] bool IsCompanyFileOpen() const override { return file != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override { return file; }
  [[nodiscard]] std::string StartDirectory() const override { return {}; }
  void advise(HostApplicationEvents& listener) override { listeners.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners.remove(listener); }

  testing_support::ServerFile file;
  Listeners<HostApplicationEvents> listeners;
};

ServerDriveHost::ServerDriveHost(Date today, int new_month)
    : today_(today),
      new_month_(new_month),
      prefix_(testing_support::newAddress()),
      application_(std::make_shared<Application>()) {}

ServerDriveHost::~ServerDriveHost() { close(); }

std::shared_ptr<HostApplication> ServerDriveHost::application() { return application_; }

void ServerDriveHost::open(const std::string& path) {
  close();
  PostgresCompanyFile::Options options = testing_support::serverOptions();
  options.opening.today = [today = today_] { return today; };
  const std::string address = prefix_ + "/" + path;
  auto opened = PostgresCompanyFile::open(address, options);
  const auto* const trouble = std::get_if<FileTrouble>(&opened);
  if (trouble != nullptr && trouble->kind() == FileTrouble::Kind::not_found) {
    CompanyInfo info{.name = "Scripted company"};
    info.first_month = new_month_;
    opened = PostgresCompanyFile::create(address, info, options);
  }
  application_->file = testing_support::openOf(opened);
  application_->listeners.raise(&HostApplicationEvents::CompanyFileOpened);
}

void ServerDriveHost::close() {
  if (application_->file == nullptr) return;
  application_->file->close();
  application_->file = nullptr;
}

void ServerDriveHost::setMultiUser(bool multi_user) {
  if (application_->file == nullptr) throw RuntimeError::objectNotSet();
  CompanyInfo info = application_->file->info();
  info.multi_user = multi_user;
  application_->file->info(info);
}

}  // namespace depcalc::drive
