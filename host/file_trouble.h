// What can be wrong with a company file.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "values/runtime_error.h"

namespace depcalc {

/// Trouble with a company file, as a value or thrown. `description()` is a sentence for the user
/// that names the file and says what would be right.
class FileTrouble : public RuntimeError {
 public:
  enum class Kind {
    not_found,           ///< no such file or directory
    exists,              ///< a new file would take its place
    not_a_company_file,  ///< something else, or not a file at all
    newer,               ///< written by a newer version of the program
    damaged,             ///< `details()` say what is wrong, one line each
    locked,              ///< held by another program, or by this one
    read_only,           ///< it, or its directory, cannot be written
    disk_full,
    lost,     ///< it is not where it was opened any more
    changed,  ///< by another program, while it was open
    failed,   ///< anything else that the system reports
  };

  FileTrouble(Kind kind, std::string message, std::vector<std::string> details = {})
      : RuntimeError(numberOf(kind), std::move(message)),
        kind_(kind),
        details_(std::move(details)) {}

  [[nodiscard]] Kind kind() const { return kind_; }
  [[nodiscard]] const std::vector<std::string>& details() const { return details_; }

 private:
  static int numberOf(Kind kind) {
    switch (kind) {
      case Kind::not_found:
      case Kind::lost:
        return 53;
      case Kind::exists:
        return 58;
      case Kind::locked:
        return 70;
      case Kind::read_only:
        return 75;
      case Kind::disk_full:
        return 61;
      default:
        return 57;
    }
  }

  Kind kind_;
  std::vector<std::string> details_;
};

}  // namespace depcalc
