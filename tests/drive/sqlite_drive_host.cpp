#include "tests/drive/sqlite_drive_host.h"

#include <filesystem>
#include <utility>
#include <variant>

namespace depcalc::drive {

class SqliteDriveHost::Application final : public HostApplication {
 public:
  [[nodiscard]] bool IsCompanyFileOpen() const override { return file != nullptr; }
  [[nodiscard]] std::shared_ptr<HostCompanyFile> CompanyFile() const override { return file; }
  [[nodiscard]] std::string StartDirectory() const override { return {}; }
  void advise(HostApplicationEvents& listener) override { listeners.add(listener); }
  void unadvise(HostApplicationEvents& listener) override { listeners.remove(listener); }

  std::shared_ptr<SqliteCompanyFile> file;
  Listeners<HostApplicationEvents> listeners;
};

SqliteDriveHost::SqliteDriveHost(Options options)
    : options_(std::move(options)), application_(std::make_shared<Application>()) {}

SqliteDriveHost::~SqliteDriveHost() { close(); }

std::shared_ptr<HostApplication> SqliteDriveHost::application() { return application_; }

void SqliteDriveHost::open(const std::string& path) {
  close();
  SqliteCompanyFile::Opened opened = openOrMake((std::filesystem::path(options_.directory) / path));
  if (const auto* const trouble = std::get_if<FileTrouble>(&opened)) throw FileTrouble(*trouble);
  application_->file = std::get<std::shared_ptr<SqliteCompanyFile>>(std::move(opened));
  application_->listeners.raise(&HostApplicationEvents::CompanyFileOpened);
}

SqliteCompanyFile::Opened SqliteDriveHost::openOrMake(const std::string& path) const {
  const Date today = options_.today;
  const SqliteCompanyFile::Options options{[today] { return today; }, true, {}};
  if (options_.new_month != 0 && !std::filesystem::exists(path)) {
    return SqliteCompanyFile::create(path, {"Scripted company", options_.new_month, false},
                                     options);
  }
  return SqliteCompanyFile::open(path, options);
}

void SqliteDriveHost::close() {
  if (application_->file == nullptr) return;
  application_->file->close();
  application_->file = nullptr;
}

void SqliteDriveHost::setMultiUser(bool multi_user) {
  if (application_->file == nullptr) throw RuntimeError::objectNotSet();
  CompanyInfo info = application_->file->info();
  info.multi_user = multi_user;
  application_->file->info(info);
}

}  // namespace depcalc::drive
