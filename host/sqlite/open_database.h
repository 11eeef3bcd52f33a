// Company files as databases that are open and locked.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/sqlite/company_lock.h"
#include "host/sqlite/database.h"

namespace depcalc {

/// A database and the lock that its file has meanwhile: taken before, given back after it.
struct OpenDatabase {
  CompanyLock lock;
  Database database;
};

/// How a company file is opened.
struct OpeningMode {
  bool writable = true;  ///< false: a file that cannot be written will do
  std::string vfs;       ///< SQLite's file system layer; "" is the usual one
};

/// Opens and locks the company file at `path`, which is absolute and free of symbolic links; with
/// `held` where the caller has its lock. Throws a FileTrouble.
OpenDatabase openDatabase(const std::string& path, const OpeningMode& mode,
                          std::optional<CompanyLock> held = std::nullopt);

/// Makes a file of what `fill` writes into an empty database, and gives it its place when it is on
/// the disk. What is there already stays, and what cannot be finished does not appear. The answer
/// is the file's lock: nobody had it before.
CompanyLock makeDatabase(const std::string& place, const std::string& vfs,
                         const std::function<void(Database&)>& fill);

}  // namespace depcalc
