// The company files that the host window opens. A path is a company file's, or the address of a
// company on a server, unless it is said to be a file's.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/company_info.h"
#include "host/failed_change.h"
#include "host/host.h"

namespace depcalc::desktop {

/// A company file could not be made, opened or changed. The text is for the user and names the
/// file.
class CompanyFileError : public std::runtime_error {
 public:
  explicit CompanyFileError(const std::string& text, bool is_damage = false)
      : std::runtime_error(text), is_damage_(is_damage) {}

  /// Whether what is in the file is at fault.
  [[nodiscard]] bool isDamage() const noexcept { return is_damage_; }

 private:
  bool is_damage_;
};

/// A company whose file is open. Its end closes the file.
class Company {
 public:
  virtual ~Company() = default;

  [[nodiscard]] virtual std::shared_ptr<HostCompanyFile> file() const = 0;
  [[nodiscard]] virtual std::string path() const = 0;

  [[nodiscard]] virtual CompanyInfo info() const = 0;
  /// Fails with CompanyFileError, and then changes nothing.
  virtual void setInfo(const CompanyInfo& info) = 0;
  /// Takes over all that the company file of this path holds, in one change: all of it or nothing.
  /// Fails with CompanyFileError.
  virtual void become(const std::string& path) = 0;
  /// Until the company is opened again nothing in it can be changed.
  virtual void refuseChanges() = 0;
  /// Why the last write failed, for the user; told once.
  virtual std::optional<std::string> takeTrouble() = 0;

  /// Makes a new company file of all that is in this one, which stays open; but where its file is
  /// no longer in its place, the new one takes it. Fails with CompanyFileError.
  virtual void saveCopy(const std::string& path) = 0;
  /// What has become of the file, for the user, where it is no longer the one that was opened.
  [[nodiscard]] virtual std::optional<std::string> lost() const = 0;

  /// Tells the file's listeners that it closes, and closes it.
  virtual void close() = 0;
};

/// A company as the list of its server has it.
struct CompanyOnServer {
  std::string address;
  std::string name;    ///< that it is filed under
  std::string in_use;  ///< by whom, as " by anna on OFFICE-3 (…)"; "" where it is free
};

/// Makes and opens company files. What does not work is a CompanyFileError.
class CompanyFiles {
 public:
  virtual ~CompanyFiles() = default;

  /// A file that is there already is left alone.
  virtual std::unique_ptr<Company> create(const std::string& path, const CompanyInfo& info) = 0;
  virtual std::unique_ptr<Company> open(const std::string& path) = 0;
  /// Keeps a company's file that is not open from everybody else as long as the answer lives; a
  /// file that is not there is nobody's.
  virtual std::shared_ptr<void> hold(const std::string& path) = 0;
  /// The assets in a company file that is not open; nothing where it cannot be opened.
  virtual std::optional<int> assetsIn(const std::string& path) = 0;
  /// The companies of the server with this address that the user may see.
  virtual std::vector<CompanyOnServer> companiesOn(const std::string& server) = 0;

  /// Who is asked what becomes of a change of any company that cannot be written; none gives it up.
  void whenChangeFails(FailedChangeHandler handler) { change_failed_ = std::move(handler); }

 protected:
  [[nodiscard]] FailedChangeAnswer settle(const FailedChange& change) const {
    return change_failed_ ? change_failed_(change) : GiveUp();
  }

 private:
  FailedChangeHandler change_failed_;
};

}  // namespace depcalc::desktop
