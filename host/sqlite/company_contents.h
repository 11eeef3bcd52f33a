// What is in a company file, held in memory and written back in one transaction.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/sqlite/company_info.h"
#include "host/sqlite/stored_table.h"
#include "host/unit_of_work.h"

namespace depcalc {

/// The company, its data tables and the unit of work over them. Outlives the file object where
/// tables do; all but `isOpen` is error 91 once closed.
class CompanyContents final : public ChangeGate, public HostUnitOfWork {
 public:
  /// Takes a database that is locked, and reads and checks all of it. Damage is thrown as a
  /// FileTrouble whose details name everything found.
  explicit CompanyContents(Database database);

  [[nodiscard]] bool isOpen() const { return database_.has_value(); }
  [[nodiscard]] const CompanyInfo& info() const;
  void info(const CompanyInfo& info);
  [[nodiscard]] std::shared_ptr<StoredTable> table(std::string_view name);
  void close();
  /// From now on every change is error 57.
  void refuseChanges() noexcept { changes_refused_ = true; }

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

  void writeWaiting();
  void write();
  void recover();
  void writeTable(StoredTable& table);
  void writeCompany();
  [[nodiscard]] std::uint64_t companyDigest() const;

  std::optional<Database> database_;
  CompanyInfo info_;
  bool info_waits_ = false;
  std::uint64_t read_digest_ = 0;
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

/// Makes the content of a new company file in an empty database.
void writeNewCompany(Database& database, const CompanyInfo& info);

}  // namespace depcalc
