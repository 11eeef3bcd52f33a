// Company files as commands use them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "DepCalc/asset_store.h"
#include "cli/command.h"
#include "host/host.h"
#include "host/sqlite/file_trouble.h"

namespace depcalc {

/// An open company file with its assets.
class Company {
 public:
  /// `file` may be any host's; `shown_name` is what messages call it.
  Company(std::shared_ptr<HostCompanyFile> file, std::string shown_name, Date today);
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  [[nodiscard]] HostCompanyFile& file() const { return *state_.m_orvcf; }
  [[nodiscard]] const std::string& name() const { return shown_name_; }
  [[nodiscard]] Date today() const { return today_; }
  /// The last day of the company's fiscal year.
  [[nodiscard]] Date fiscalYearEnd() const { return file().FiscalYearStart().plusDays(-1); }

  /// The store has its table's name; `open` it before saving.
  AssetStore& store() { return store_; }
  StoreState& state() { return state_; }

  /// The register's assets, 1 to the last; the table's record 0 is not counted.
  [[nodiscard]] std::int32_t assetCount() const;
  /// Asset `index` as far as its values can be read: one without amounts is read up to them.
  /// An error that is not of its values, as running out of memory, reaches the caller.
  CalculateDepPtr asset(std::int32_t index);

  /// Runs `change` in one unit of work. All of it reaches the file, or nothing where `keep` is
  /// false or an error was reported meanwhile; that report is the answer. An error of writing
  /// reaches the caller. The host must have units of work.
  std::optional<std::string> changeAtOnce(const std::function<void()>& change, bool keep = true);

 private:
  std::string shown_name_;
  Date today_;
  StoreState state_;
  AssetStore store_;
};

/// Says on standard error what is wrong with a company file, and gives the exit status for it.
ExitStatus reportTrouble(const FileTrouble& trouble, Output& errors);

/// A command on a company file: FILE is its first argument, and it has --today.
class CompanyCommand : public Command {
 public:
  void declare(CLI::App& app) final;
  /// Opens the file and does the command's work on it.
  ExitStatus run(Surroundings& surroundings) override;

 protected:
  /// Whether a file that cannot be written will do.
  [[nodiscard]] virtual bool onlyReads() const { return false; }
  virtual void declareMore(CLI::App& app) = 0;
  virtual ExitStatus runOn(Company& company, Surroundings& surroundings) = 0;

  /// FILE.
  [[nodiscard]] const std::string& path() const { return path_; }
  /// "depcalc: FILE: `message`" on a line.
  static void complain(const Company& company, std::string_view message, Output& errors);

 private:
  std::string path_;
  std::optional<Date> today_;
};

}  // namespace depcalc
