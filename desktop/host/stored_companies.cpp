#include "desktop/host/stored_companies.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <variant>

#include "DepCalc/asset_store.h"
#include "common/trapped.h"
#include "host/postgresql/server.h"
#include "host/sqlite/company_lock.h"
#include "host/stored/copied_tables.h"

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

class StoredCompany final : public Company {
 public:
  explicit StoredCompany(std::shared_ptr<StoredCompanyFile> file) : file_(std::move(file)) {}

  [[nodiscard]] std::shared_ptr<HostCompanyFile> file() const override { return file_; }
  [[nodiscard]] std::string path() const override { return file_->path(); }
  [[nodiscard]] CompanyInfo info() const override { return file_->info(); }
  void setInfo(const CompanyInfo& info) override {
    requireWritten(trapped("DepCalcDesktop::setInfo", [&] { file_->info(info); }));
  }
  void become(const std::string& path) override;
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
  void requireWritten(bool written) {
    if (written) return;
    const auto trouble = file_->takeTrouble();
    throw CompanyFileError(trouble.has_value() ? sentence(*trouble)
                                               : path() + " could not be written.");
  }

  std::shared_ptr<StoredCompanyFile> file_;
};

/// Throws the trouble.
std::shared_ptr<StoredCompanyFile> fileOf(const OpenedCompanyFile& opened) {
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) throw errorOf(*trouble);
  return std::get<0>(opened);
}

PlaceOptions readingOnly(PlaceOptions options) {
  options.opening.writable = false;
  return options;
}

void StoredCompany::become(const std::string& path) {
  const auto today = [this] { return file_->FiscalYearStart(); };
  const auto from = fileOf(openCompany(path, readingOnly({.opening = {.today = today}})));
  const bool written = trapped("DepCalcDesktop::become", [&] { copyCompany(*from, *file_); });
  from->close();
  requireWritten(written);
}

}  // namespace

PlaceOptions StoredCompanies::options() const {
  return {
      .opening = {.today = today_,
                  .writable = true,
                  .change_failed = [this](const FailedChange& change) { return settle(change); }},
      .program = "depcalc-desktop"};
}

std::unique_ptr<Company> StoredCompanies::create(const std::string& place,
                                                 const CompanyInfo& info) {
  return std::make_unique<StoredCompany>(fileOf(createCompany(place, info, options())));
}

std::unique_ptr<Company> StoredCompanies::open(const std::string& place) {
  return std::make_unique<StoredCompany>(fileOf(openCompany(place, options())));
}

std::shared_ptr<void> StoredCompanies::hold(const std::string& path) {
  std::error_code no_such_file;
  if (!std::filesystem::exists(path, no_such_file)) return nullptr;
  try {
    return std::make_shared<CompanyLock>(path);
  } catch (const FileTrouble& trouble) {
    throw errorOf(trouble);
  }
}

std::optional<int> StoredCompanies::assetsIn(const std::string& place) {
  const auto opened = openCompany(place, readingOnly(options()));
  const auto* const file = std::get_if<std::shared_ptr<StoredCompanyFile>>(&opened);
  if (file == nullptr) return std::nullopt;
  // The first record sums the others up.
  return std::max(0, (*file)->OpenTable(asset_table_name)->Count() - 1);
}

std::vector<CompanyOnServer> StoredCompanies::companiesOn(const std::string& server) {
  try {
    std::vector<CompanyOnServer> companies;
    for (const ServerCompany& company : companiesOf(server)) {
      companies.push_back({company.address, company.name, company.in_use});
    }
    return companies;
  } catch (const FileTrouble& trouble) {
    throw errorOf(trouble);
  }
}

}  // namespace depcalc::desktop
