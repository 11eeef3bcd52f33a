// Company files: one SQLite file each.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "host/company_info.h"
#include "host/failed_change.h"
#include "host/file_trouble.h"
#include "host/host.h"
#include "host/listeners.h"
#include "host/stored_company_file.h"

namespace depcalc {

class CompanyContents;
class CompanyLock;

/// A company file, open and locked against every other program until it is closed.
///
/// What is committed is on the disk when Commit returns or, inside a unit of work, when the unit
/// ends. A write that fails leaves the file as it was before; what is to become of the change says
/// the handler of the options. Where it is given up, the tables hold what the file holds, the error
/// (53, 57, 61, 70, 75) goes to the caller, and `takeTrouble` has it in full.
/// docs/company-file.md describes the file itself.
class SqliteCompanyFile final : public StoredCompanyFile {
 public:
  struct Options {
    std::function<Date()> today;  ///< the current fiscal year follows from it
    bool writable = true;         ///< false: a file that cannot be written is opened all the same
    std::string vfs;              ///< SQLite's file system layer; "" is the usual one
    /// Asked what becomes of a change that cannot be written; without one it is given up.
    FailedChangeHandler change_failed = {};
  };
  using Opened = std::variant<std::shared_ptr<SqliteCompanyFile>, FileTrouble>;

  /// Makes a company file and opens it. A file that is there is left alone, and a file that
  /// cannot be finished does not appear.
  static Opened create(const std::string& path, const CompanyInfo& info, const Options& options);

  /// Opens a company file and checks all of it: the header, the structure, every record against
  /// its digest. Nothing of a damaged file is believed.
  static Opened open(const std::string& path, const Options& options);

  ~SqliteCompanyFile() override;

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  /// What `currentFiscalYearStart` says of the company's first month.
  [[nodiscard]] Date FiscalYearStart() const override;
  [[nodiscard]] bool IsMultiUser() const override;
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override;
  [[nodiscard]] HostUnitOfWork* unitOfWork() override;
  void advise(HostCompanyFileEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { listeners_.remove(listener); }

  /// Absolute and without symbolic links.
  [[nodiscard]] const std::string& path() const override;
  [[nodiscard]] const CompanyInfo& info() const override;
  void info(const CompanyInfo& info) override;
  [[nodiscard]] std::vector<std::string> tableNames() const override;
  void refuseChanges() noexcept override;
  std::optional<FileTrouble> takeTrouble() override;
  std::optional<FileTrouble> saveCopy(const std::string& path) override;
  [[nodiscard]] std::optional<FileTrouble> lost() const override;
  void close() override;

 private:
  SqliteCompanyFile(std::shared_ptr<CompanyContents> contents, std::function<Date()> today);
  static Opened over(const std::string& path, const Options& options,
                     std::optional<CompanyLock> held);

  std::shared_ptr<CompanyContents> contents_;
  std::function<Date()> today_;
  std::shared_ptr<const HostPicture> picture_;
  Listeners<HostCompanyFileEvents> listeners_;
};

}  // namespace depcalc
