// The lock on a company file that is open.
#pragma once

#include <string>

#include "host/sqlite/database.h"

namespace depcalc {

/// A lock that only its own end gives back. SQLite's locks belong to the process: any descriptor
/// of the file that the process closes, a file dialog's for one, drops them all. This one belongs
/// to a descriptor of its own, and every opener of company files asks for it.
///
/// Closing that descriptor drops SQLite's locks, too. So the lock is taken before SQLite opens the
/// file, and its end comes after SQLite has closed it.
class CompanyLock {
 public:
  /// The whole file, as far as the file system lets SQLite lock its bytes beside that; the system
  /// then tells who holds it. Else one byte, which all who come by this way ask for.
  enum class Way { by_file_system, one_byte };

  /// Takes the lock: shared with others who read where the file may not be written. Throws a
  /// FileTrouble that names who holds it, and then leaves what this process has locked as it is.
  explicit CompanyLock(const std::string& path, Way way = Way::by_file_system);
  ~CompanyLock();
  CompanyLock(CompanyLock&& other) noexcept;
  CompanyLock& operator=(CompanyLock&& other) noexcept;

  /// Throws a FileTrouble unless `path` still leads to the file that is locked.
  void requireInPlace(const std::string& path) const;
  /// Whether SQLite, in this process, holds the file against every other program.
  [[nodiscard]] bool sqliteHolds() const;

 private:
  int descriptor_;
};

/// Takes SQLite's own lock and keeps it until the database is closed. A file that cannot be
/// written is held against writers only. Throws a FileTrouble where another program has it.
void holdDatabase(Database& database);
/// The same once the lock has been dropped behind SQLite's back. What SQLite keeps of the file in
/// memory is believed no longer where the file has changed meanwhile.
void holdDatabaseAgain(Database& database);

}  // namespace depcalc
