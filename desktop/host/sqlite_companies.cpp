#include "desktop/host/sqlite_companies.h"

#include "common/trapped.h"
#include "host/sqlite/company_file.h"

namespace depcalc::desktop {
namespace {

std::string sentence(const FileTrouble& trouble) {
  std::string text = trouble.description();
  for (const std::string& detail : trouble.details()) text += "\n" + detail;
  return text;
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
  void close() override { file_->close(); }

 private:
  std::shared_ptr<SqliteCompanyFile> file_;
};

std::unique_ptr<Company> opened(SqliteCompanyFile::Opened result) {
  if (const auto* trouble = std::get_if<FileTrouble>(&result)) {
    throw CompanyFileError(sentence(*trouble));
  }
  return std::make_unique<SqliteCompany>(std::get<std::shared_ptr<SqliteCompanyFile>>(result));
}

}  // namespace

std::unique_ptr<Company> SqliteCompanies::create(const std::string& path, const CompanyInfo& info) {
  return opened(SqliteCompanyFile::create(path, info, {today_, true, {}}));
}

std::unique_ptr<Company> SqliteCompanies::open(const std::string& path) {
  return opened(SqliteCompanyFile::open(path, {today_, true, {}}));
}

}  // namespace depcalc::desktop
