// Companies kept in memory, for windows under test.
#pragma once

#include <map>

#include "desktop/host/company_files.h"
#include "host/fiscal_year.h"
#include "host/memory/memory_host.h"

namespace depcalc::testing {

class MemoryCompanies : public desktop::CompanyFiles {
 public:
  struct Kept {
    std::shared_ptr<MemoryCompanyFile> file;
    CompanyInfo info;
    bool changes_refused = false;
    std::optional<std::string> lost = {};
  };

  std::unique_ptr<desktop::Company> create(const std::string& path,
                                           const CompanyInfo& info) override {
    Kept& kept = companies[path];
    kept = {std::make_shared<MemoryCompanyFile>(firstDay(info), MemoryCompanyFile::Units::offered),
            info};
    return std::make_unique<Open>(path, kept);
  }

  std::unique_ptr<desktop::Company> open(const std::string& path) override {
    const auto found = companies.find(path);
    if (found == companies.end()) throw desktop::CompanyFileError(path + ": no such company");
    found->second.file->reopen();
    return std::make_unique<Open>(path, found->second);
  }

  std::shared_ptr<void> hold(const std::string&) override { return nullptr; }
  std::optional<int> assetsIn(const std::string& path) override {
    return companies.contains(path) ? std::optional(0) : std::nullopt;
  }

  std::vector<desktop::CompanyOnServer> companiesOn(const std::string& server) override {
    throw desktop::CompanyFileError(server + ": there is nothing but memory here");
  }

  std::map<std::string, Kept> companies;

 private:
  /// In the middle of a leap year.
  static Date firstDay(const CompanyInfo& info) {
    return currentFiscalYearStart(info.first_month, Date::strict(2024, 6, 15));
  }

  class Open : public desktop::Company {
   public:
    Open(std::string path, Kept& kept) : path_(std::move(path)), kept_(kept) {}

    [[nodiscard]] std::shared_ptr<HostCompanyFile> file() const override { return kept_.file; }
    [[nodiscard]] std::string path() const override { return path_; }
    [[nodiscard]] CompanyInfo info() const override { return kept_.info; }
    void setInfo(const CompanyInfo& info) override {
      kept_.info = info;
      kept_.file->fiscalYearStart(firstDay(info));
      kept_.file->multiUser(info.multi_user);
    }
    void become(const std::string& path) override {
      throw desktop::CompanyFileError(path + ": there is nothing but memory here");
    }
    void refuseChanges() override { kept_.changes_refused = true; }
    std::optional<std::string> takeTrouble() override { return std::nullopt; }
    [[nodiscard]] std::optional<std::string> lost() const override { return kept_.lost; }
    void saveCopy(const std::string& path) override {
      throw desktop::CompanyFileError(path + ": there is nothing but memory here");
    }
    void close() override { kept_.file->close(); }

   private:
    std::string path_;
    Kept& kept_;
  };
};

}  // namespace depcalc::testing
