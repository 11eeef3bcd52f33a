// Companies on a PostgreSQL server.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/listeners.h"
#include "host/stored_company_file.h"

namespace depcalc {

class CompanySession;
class ServerContents;
struct Libpq;

/// A company on a server (docs/server.md describes the schema), open and locked against every other
/// program until it is closed.
///
/// All of it is held in memory; a change, or a unit of work, is one transaction. A connection that
/// was lost is made again with the next change, which is refused where somebody else has the
/// company by then, or has changed it. Where it was lost at the end of a transaction, the server
/// says what became of that one before anything else is written.
class PostgresCompanyFile final : public StoredCompanyFile {
 public:
  struct Options {
    OpeningOptions opening;
    std::string program = "depcalc";  ///< for those who find the company in use
    /// Makes a new company file of this path of all that is in a company and opens it.
    std::function<std::shared_ptr<StoredCompanyFile>(const std::string& path, StoredCompanyFile&)>
        make_copy = {};
    /// How long a connection that was lost is tried again before that counts as a failure.
    std::chrono::milliseconds patience{10'000};
    const Libpq* libpq = nullptr;  ///< null: the library is loaded
  };
  using Opened = std::variant<std::shared_ptr<PostgresCompanyFile>, FileTrouble>;

  /// Makes a company and opens it. One of that name is left alone. What `fill` writes into it comes
  /// with it: all of it, or there is no company.
  static Opened create(const std::string& address, const CompanyInfo& info, const Options& options,
                       const std::function<void(StoredCompanyFile&)>& fill = {});
  /// Opens a company and checks all of it.
  static Opened open(const std::string& address, const Options& options);

  ~PostgresCompanyFile() override;

  std::shared_ptr<HostTable> OpenTable(std::string_view name) override;
  /// What `currentFiscalYearStart` says of the company's first month.
  [[nodiscard]] Date FiscalYearStart() const override;
  [[nodiscard]] bool IsMultiUser() const override;
  [[nodiscard]] std::shared_ptr<const HostPicture> PalettePicture() const override;
  [[nodiscard]] HostUnitOfWork* unitOfWork() override;
  void advise(HostCompanyFileEvents& listener) override { listeners_.add(listener); }
  void unadvise(HostCompanyFileEvents& listener) override { listeners_.remove(listener); }

  [[nodiscard]] const std::string& path() const override;
  [[nodiscard]] const CompanyInfo& info() const override;
  void info(const CompanyInfo& info) override;
  [[nodiscard]] std::vector<std::string> tableNames() const override;
  void refuseChanges() noexcept override;
  std::optional<FileTrouble> takeTrouble() override;
  std::optional<FileTrouble> saveCopy(const std::string& path) override;
  /// As far as a change has noticed it.
  [[nodiscard]] std::optional<FileTrouble> lost() const override;
  void close() override;

 private:
  PostgresCompanyFile(std::shared_ptr<ServerContents> contents, const Options& options);

  std::shared_ptr<ServerContents> contents_;
  std::function<Date()> today_;
  std::shared_ptr<const HostPicture> picture_;
  Listeners<HostCompanyFileEvents> listeners_;
};

}  // namespace depcalc
