// The company files that the host window opens.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "host/host.h"

namespace depcalc::desktop {

/// What Company Info shows.
struct CompanyInfo {
  std::string name;
  int first_month = 1;  ///< of the fiscal year, 1 to 12

  friend bool operator==(const CompanyInfo&, const CompanyInfo&) = default;
};

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

  // These three fail with CompanyFileError, and then change nothing.
  [[nodiscard]] virtual CompanyInfo info() const = 0;
  virtual void setInfo(const CompanyInfo& info) = 0;
  virtual void setMultiUser(bool on) = 0;

  /// Tells the file's listeners that it closes, and closes it.
  virtual void close() = 0;
};

/// Makes and opens company files. Both fail with CompanyFileError.
class CompanyFiles {
 public:
  virtual ~CompanyFiles() = default;

  /// A new company in single-user mode. A file of that name is replaced: the caller has asked.
  virtual std::unique_ptr<Company> create(const std::string& path, const CompanyInfo& info) = 0;
  virtual std::unique_ptr<Company> open(const std::string& path) = 0;
};

}  // namespace depcalc::desktop
