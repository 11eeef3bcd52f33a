// A company file that lasts: on a disk, or on a server.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/company_info.h"
#include "host/failed_change.h"
#include "host/file_trouble.h"
#include "host/host.h"

namespace depcalc {

/// A company file, open and kept from every other program until it is closed. What is committed is
/// kept when Commit returns or, inside a unit of work, when the unit ends.
class StoredCompanyFile : public HostCompanyFile {
 public:
  /// Where it is, as a user would name it to open it. Another one after going on with a copy.
  [[nodiscard]] virtual const std::string& path() const = 0;
  [[nodiscard]] virtual const CompanyInfo& info() const = 0;
  /// Writes at once. A month that is none is error 5; a failure to write, like Commit.
  virtual void info(const CompanyInfo& info) = 0;
  /// The names of the data tables that have or had records.
  [[nodiscard]] virtual std::vector<std::string> tableNames() const = 0;

  /// For a host whose calculator could not keep all that it read, and might write back the rest
  /// of it: until the file is opened again every change is error 57.
  virtual void refuseChanges() noexcept = 0;
  /// Why the last write failed, told once.
  virtual std::optional<FileTrouble> takeTrouble() = 0;

  /// Makes a new company file of all that is in this one, which stays the open one; but where it is
  /// no longer in its place, the copy takes it. Answers what went wrong.
  virtual std::optional<FileTrouble> saveCopy(const std::string& path) = 0;
  /// Whether the file is no longer the one that was opened, and what became of it: what is held in
  /// memory is then all there is. Not to be asked once it is closed.
  [[nodiscard]] virtual std::optional<FileTrouble> lost() const = 0;

  /// Raises CompanyFileClosing, then closes and lets others open it.
  virtual void close() = 0;
};

/// How a company file is opened, wherever it is.
struct OpeningOptions {
  std::function<Date()> today;  ///< the current fiscal year follows from it
  bool writable = true;         ///< false: a file that cannot be written is opened all the same
  /// Asked what becomes of a change that cannot be written; without one it is given up.
  FailedChangeHandler change_failed = {};
};

/// A company file that was opened, or what stood in the way.
using OpenedCompanyFile = std::variant<std::shared_ptr<StoredCompanyFile>, FileTrouble>;

}  // namespace depcalc
