// Companies in files.
#pragma once

#include <functional>

#include "desktop/host/company_files.h"
#include "host/sqlite/company_file.h"

namespace depcalc::desktop {

class SqliteCompanies final : public CompanyFiles {
 public:
  explicit SqliteCompanies(std::function<Date()> today) : today_(std::move(today)) {}

  std::unique_ptr<Company> create(const std::string& path, const CompanyInfo& info) override;
  std::unique_ptr<Company> open(const std::string& path) override;
  std::shared_ptr<void> hold(const std::string& path) override;
  std::optional<int> assetsIn(const std::string& path) override;

 private:
  [[nodiscard]] SqliteCompanyFile::Options options() const;

  std::function<Date()> today_;
};

}  // namespace depcalc::desktop
