// The company files that the host window opens.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "host/host.h"
#include "host/sqlite/company_info.h"

namespace depcalc::desktop {

/// A company file could not be made, opened or changed. The text is for the user and names the
/// file.
class CompanyFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
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
  /// Until the company is opened again nothing in it can be changed.
  virtual void refuseChanges() = 0;
  /// Why the last write failed, for the user; told once.
  virtual std::optional<std::string> takeTrouble() = 0;

  /// Tells the file's listeners that it closes, and closes it.
  virtual void close() = 0;
};

/// Makes and opens company files. Both fail with CompanyFileError.
class CompanyFiles {
 public:
  virtual ~CompanyFiles() = default;

  /// A file that is there already is left alone.
  virtual std::unique_ptr<Company> create(const std::string& path, const CompanyInfo& info) = 0;
  virtual std::unique_ptr<Company> open(const std::string& path) = 0;
};

}  // namespace depcalc::desktop
