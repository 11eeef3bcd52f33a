#include "desktop/host/sqlite_companies.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <variant>

#include "DepCalc/asset_store.h"
#include "common/trapped.h"
#include "host/sqlite/company_lock.h"

namespace depcalc::desktop {
namespace {

std::string sentence(const FileTrouble& trouble) {
  std::string text = trouble.description();
  // A single one is in the description.
  if (trouble.details().size() == 1) return text;
  for (const std::string& detail : trouble.details()) text += "\n" + detail;
  return text;
}

CompanyFileError errorOf(const FileTrouble& trouble) {
  using Kind = FileTrouble::Kind;
  return CompanyFileError(sentence(trouble), trouble.kind() == Kind::damaged ||
                                                 trouble.kind() == Kind::not_a_company_file);
}

class SqliteCompany final : public Company {
 public:
  explicit SqliteCompany(std::shared_ptr<SqliteCompanyFile> file) : file_(std::move(file)) {}

  [[nodiscard]] std::shared_ptr<HostCompanyFile> file() const override { return file_; }
  [[nodiscard]] std::string path() const override { return file_->path(); }
  [[nodiscard]] CompanyInfo info() const override { return file_->info(); }
  void setInfo(const CompanyInfo& info) override {
    const bool written = trapped("DepCalcDesktop::setInfo", [&] { file_->info(info); });
    if (written) return;
    const auto trouble = file_->takeTrouble();
    throw CompanyFileError(trouble.has_value() ? sentence(*trouble)
                                               : path() + " could not be written.");
  }
  void refuseChanges() override { file_->refuseChanges(); }
  std::optional<std::string> takeTrouble() override {
    const auto trouble = file_->takeTrouble();
    return trouble.has_value() ? std::optional(sentence(*trouble)) : std::nullopt;
  }
  [[nodiscard]] std::optional<std::string> lost() const override {
    const auto trouble = file_->lost();
    return trouble.has_value() ? std::optional(sentence(*trouble)) : std::nullopt;
  }
  void saveCopy(const std::string& path) override {
    if (const auto trouble = file_->saveCopy(path)) throw errorOf(*trouble);
  }
  void close() override { file_->close(); }

 private:
  std::shared_ptr<SqliteCompanyFile> file_;
};

std::unique_ptr<Company> opened(SqliteCompanyFile::Opened result) {
  if (const auto* trouble = std::get_if<FileTrouble>(&result)) {
    throw errorOf(*trouble);
  }
  return std::make_unique<SqliteCompany>(std::get<std::shared_ptr<SqliteCompanyFile>>(result));
}

}  // namespace

SqliteCompanyFile::Options SqliteCompanies::options() const {
  return {.today = today_,
          .writable = true,
          .vfs = {},
          .change_failed = [this](const FailedChange& change) { return settle(change); }};
}

std::unique_ptr<Company> SqliteCompanies::create(const std::string& path, const CompanyInfo& info) {
  return opened(SqliteCompanyFile::create(path, info, options()));
}

std::unique_ptr<Company> SqliteCompanies::open(const std::string& path) {
  return opened(SqliteCompanyFile::open(path, options()));
}

std::shared_ptr<void> SqliteCompanies::hold(const std::string& path) {
  std::error_code no_such_file;
  if (!std::filesystem::exists(path, no_such_file)) return nullptr;
  try {
    return std::make_shared<CompanyLock>(path);
  } catch (const FileTrouble& trouble) {
    throw errorOf(trouble);
  }
}

std::optional<int> SqliteCompanies::assetsIn(const std::string& path) {
  SqliteCompanyFile::Options reading = options();
  reading.writable = false;
  const auto opened = SqliteCompanyFile::open(path, reading);
  const auto* const file = std::get_if<std::shared_ptr<SqliteCompanyFile>>(&opened);
  if (file == nullptr) return std::nullopt;
  // The first record sums the others up.
  return std::max(0, (*file)->OpenTable(asset_table_name)->Count() - 1);
}

}  // namespace depcalc::desktop
