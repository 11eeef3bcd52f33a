// Companies in files.
#pragma once

#include <functional>

#include "desktop/host/company_files.h"

namespace depcalc::desktop {

class SqliteCompanies final : public CompanyFiles {
 public:
  explicit SqliteCompanies(std::function<Date()> today) : today_(std::move(today)) {}

  std::unique_ptr<Company> create(const std::string& path, const CompanyInfo& info) override;
  std::unique_ptr<Company> open(const std::string& path) override;

 private:
  std::function<Date()> today_;
};

}  // namespace depcalc::desktop
