// Companies that last: in files, and on servers.
#pragma once

#include <functional>

#include "desktop/host/company_files.h"
#include "host/places/company_places.h"

namespace depcalc::desktop {

class StoredCompanies final : public CompanyFiles {
 public:
  explicit StoredCompanies(std::function<Date()> today) : today_(std::move(today)) {}

  std::unique_ptr<Company> create(const std::string& place, const CompanyInfo& info) override;
  std::unique_ptr<Company> open(const std::string& place) override;
  std::shared_ptr<void> hold(const std::string& path) override;
  std::optional<int> assetsIn(const std::string& place) override;
  std::vector<CompanyOnServer> companiesOn(const std::string& server) override;

 private:
  [[nodiscard]] PlaceOptions options() const;

  std::function<Date()> today_;
};

}  // namespace depcalc::desktop
