// What is in a company file, held in memory and written back in one transaction.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/company_info.h"
#include "host/failed_change.h"
#include "host/sqlite/open_database.h"
#include "host/stored/stored_table.h"
#include "host/unit_of_work.h"

namespace depcalc {

/// The company, its data tables and the unit of work over them. Outlives the file object where
/// tables do; all but `isOpen` is error 91 once closed.
class CompanyContents final : public ChangeGate, public HostUnitOfWork {
 public:
  /// Takes a database that is locked, and reads and checks all of it. Damage is thrown as a
  /// FileTrouble whose details name everything found. `vfs` is the file system layer of copies;
  /// `failed` may be none.
  CompanyContents(OpenDatabase open, std::string vfs, FailedChangeHandler failed);

  [[nodiscard]] bool isOpen() const { return open_.has_value(); }
  [[nodiscard]] const std::string& path() const { return path_; }
  /// As it was read last, where the file cannot be read now.
  [[nodiscard]] const CompanyInfo& info() const;
  void info(const CompanyInfo& info);
  [[nodiscard]] std::shared_ptr<StoredTable> table(std::string_view name);
  [[nodiscard]] std::vector<std::string> tableNames() const;
  void close();
  /// From now on every change is error 57. Of a unit of work that is open nothing is kept.
  void refuseChanges() noexcept { changes_refused_ = true; }

  /// Makes a company file of what is in memory, what waits to be written among it. Where the open
  /// file is no longer in its place, goes on with the copy. Throws a FileTrouble.
  void saveCopy(const std::string& path);
  /// Whether the file was removed, renamed or replaced since it was opened, and how.
  [[nodiscard]] std::optional<FileTrouble> lost() const;

  /// The trouble that the last write had; empty when it had none or was asked for already.
  std::optional<FileTrouble> takeTrouble();

  void requireOpen() const override;
  void beforeChange() override;
  void afterChange() override;

  void begin() noexcept override { ++depth_; }
  void end() override;
  void abandon() override;
  [[nodiscard]] std::uint64_t revision() const noexcept override { return revision_; }

 private:
  using Tables = std::map<std::string, std::shared_ptr<StoredTable>, std::less<>>;

  [[nodiscard]] std::shared_ptr<StoredTable> tableCalled(std::string_view name);
  void read();
  void checkIntegrity(std::vector<std::string>& problems);
  void readCompany(std::vector<std::string>& problems);
  void readTables(std::vector<std::string>& problems);
  void readRecords(std::vector<std::string>& problems);
  void compareTables(std::vector<std::string>& problems);

  [[nodiscard]] bool isWaiting() const;
  void writeWaiting();
  void writeInPlace();
  void requireStillOurs();
  [[nodiscard]] bool fileIsAsKnown();
  void write(Database& database, StoredTable::Extent extent);
  void writeTable(Database& database, StoredTable& table, StoredTable::Extent extent);
  void written() noexcept;
  [[nodiscard]] std::uint64_t companyDigest() const;

  [[nodiscard]] bool isMended();
  [[nodiscard]] bool mend();
  [[nodiscard]] FailedChange::InFile whatFileHas();
  void recover();
  [[nodiscard]] CompanyLock makeCopy(const std::string& place);
  void goOnWith(const std::string& path);

  std::optional<OpenDatabase> open_;
  std::string path_;
  std::string vfs_;
  FailedChangeHandler change_failed_;
  bool asking_ = false;  ///< the handler has the word
  CompanyInfo info_;
  bool info_waits_ = false;
  std::uint64_t file_digest_ = 0;     ///< of the company, as the file has it
  std::uint64_t written_digest_ = 0;  ///< as it was written last, whether or not that counts
  Tables tables_;
  std::map<std::int64_t, std::shared_ptr<StoredTable>> by_id_;
  /// As the data_table rows have them.
  struct Counted {
    std::int64_t records = 0;
    std::uint64_t tally = 0;
  };
  std::map<std::int64_t, Counted> counted_;
  int depth_ = 0;
  bool changes_refused_ = false;
  std::uint64_t revision_ = 0;
  std::optional<FileTrouble> trouble_;
  bool readable_ = false;                  ///< what is in memory is what the file says
  std::optional<FileTrouble> unreadable_;  ///< why not, where there was memory to keep it
};

}  // namespace depcalc
