// What is in a company on a server, held in memory and written back in one transaction.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/company_info.h"
#include "host/failed_change.h"
#include "host/postgresql/company_session.h"
#include "host/stored/stored_table.h"
#include "host/stored_company_file.h"
#include "host/unit_of_work.h"

namespace depcalc {

/// The company, its data tables and the unit of work over them. Outlives the file object where
/// tables do; all but `isOpen` is error 91 once closed.
class ServerContents final : public ChangeGate, public HostUnitOfWork {
 public:
  /// Makes a company file of this path of all there is.
  using MakeCopy = std::function<std::shared_ptr<StoredCompanyFile>(const std::string& path)>;

  /// Reads all of the company and checks it.
  ServerContents(CompanySession session, FailedChangeHandler failed);
  /// A company that is to be made: with the outermost unit, or with the first change.
  ServerContents(CompanySession session, FailedChangeHandler failed, CompanyInfo info);

  void copiesBy(MakeCopy make_copy) { make_copy_ = std::move(make_copy); }
  [[nodiscard]] bool isOpen() const { return is_open_; }
  [[nodiscard]] const std::string& path() const;
  [[nodiscard]] const CompanyInfo& info() const;
  void info(const CompanyInfo& info);
  [[nodiscard]] std::shared_ptr<StoredTable> table(std::string_view name);
  [[nodiscard]] std::vector<std::string> tableNames() const;
  void close();
  /// From now on every change is error 57. Of a unit of work that is open nothing is kept.
  void refuseChanges() noexcept { changes_refused_ = true; }

  /// A company that is no longer there goes on with the copy. Throws a FileTrouble.
  void saveCopy(const std::string& path);
  /// What has become of the company, as far as it was noticed.
  [[nodiscard]] std::optional<FileTrouble> lost() const { return lost_; }
  /// The trouble that the last write had; empty when it had none or was asked for already.
  std::optional<FileTrouble> takeTrouble();

  void requireOpen() const override;
  void beforeChange() override;
  void afterChange() override;

  void begin() noexcept override { ++depth_; }
  void end() override;
  void abandon() override;
  [[nodiscard]] std::uint64_t revision() const noexcept override { return changes_; }

 private:
  using Tables = std::map<std::string, std::shared_ptr<StoredTable>, std::less<>>;
  using Problems = std::vector<std::string>;

  [[nodiscard]] std::shared_ptr<StoredTable> tableCalled(std::string_view name);
  void read();
  void readCompany();
  void readTables();
  void readRecords(Problems& problems);
  void compareTables(Problems& problems);
  void readOf(StoredCompanyFile& file);

  [[nodiscard]] bool isWaiting() const;
  void writeWaiting();
  void writeOnce();
  void write();
  void writeAll();
  void makeCompany();
  void updateCompany();
  void writeTables();
  void writeTo(StoredCompanyFile& copy);
  void written() noexcept;

  void connectAgain();
  void settle();
  void requireAsKnown(std::int64_t revision);
  [[noreturn]] void failUpdating();
  void noteTrouble(const FileTrouble& trouble);
  [[nodiscard]] bool isMended();
  [[nodiscard]] bool mend();
  void giveUp();
  void undo() noexcept;
  void goOnWith(const std::string& path);

  std::optional<CompanySession> session_;
  std::shared_ptr<StoredCompanyFile> copy_;  ///< in the server's place
  MakeCopy make_copy_;
  FailedChangeHandler change_failed_;
  std::string path_;
  bool is_open_ = true;
  bool asking_ = false;  ///< the handler has the word
  CompanyInfo info_;
  CompanyInfo file_info_;  ///< as the server has it
  bool info_waits_ = false;
  std::int64_t file_revision_ = 0;  ///< of the company, as the server has it
  std::string transaction_;         ///< was to be committed; what became of it is not known yet
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
  std::uint64_t changes_ = 0;
  std::optional<FileTrouble> trouble_;
  std::optional<FileTrouble> lost_;
  bool readable_ = false;                  ///< what is in memory is what the server says
  std::optional<FileTrouble> unreadable_;  ///< why not
};

}  // namespace depcalc
