// Company files as commands use them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "DepCalc/company_assets.h"
#include "cli/command.h"
#include "host/company_info.h"
#include "host/file_trouble.h"

namespace depcalc {

/// An open company file as messages name it.
class Company : public CompanyAssets {
 public:
  /// `shown_name` is what messages call it; `info` is what the file says of the company.
  Company(std::shared_ptr<HostCompanyFile> file, std::string shown_name, Date today,
          CompanyInfo info = {})
      : CompanyAssets(std::move(file), today),
        shown_name_(std::move(shown_name)),
        info_(std::move(info)) {}

  [[nodiscard]] const std::string& name() const { return shown_name_; }
  [[nodiscard]] const CompanyInfo& info() const { return info_; }

 private:
  std::string shown_name_;
  CompanyInfo info_;
};

/// Says on standard error what is wrong with a company file, and gives the exit status for it.
ExitStatus reportTrouble(const FileTrouble& trouble, Output& errors);

/// A command on a company file: FILE is its argument, and it has --today.
class CompanyCommand : public Command {
 public:
  void declare(Arguments& arguments) final;
  /// Opens the file and does the command's work on it.
  ExitStatus run(Surroundings& surroundings) override;

 protected:
  /// Whether a file that cannot be written will do.
  [[nodiscard]] virtual bool onlyReads() const { return false; }
  /// Arguments that stand before FILE.
  virtual void declareFirst(Arguments& /*arguments*/) {}
  virtual void declareMore(Arguments& arguments) = 0;
  virtual ExitStatus runOn(Company& company, Surroundings& surroundings) = 0;

  /// FILE.
  [[nodiscard]] const std::string& path() const { return path_; }
  /// Whether there is an asset `number`, from 1; says so where there is none.
  static bool hasAsset(const Company& company, std::int32_t number, Output& errors);
  /// "depcalc: FILE: `message`" on a line.
  static void complain(const Company& company, std::string_view message, Output& errors);
  /// Says why asset `number` was left as it is.
  static ExitStatus refuse(const Company& company, std::int32_t number, const std::string& why,
                           Output& errors);
  /// Whether a change was saved: where `trouble` came up, says so.
  static bool isSaved(const Company& company, const std::optional<std::string>& trouble,
                      Output& errors);

 private:
  std::string path_;
  std::optional<Date> today_;
};

}  // namespace depcalc
