#include "host/sqlite/open_database.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/sqlite/company_path.h"
#include "host/sqlite/company_schema.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// Every commit reaches the disk before it returns, its directory entry included.
void setDurability(Database& database) {
  if (database.readOnly()) return;
  database.execute("PRAGMA synchronous = EXTRA");
  database.execute("PRAGMA journal_mode = DELETE");
  database.execute("PRAGMA journal_size_limit = 1048576");
}

/// A file under way to its place; gone at the end of its life, wherever it got.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& place) {
    const std::filesystem::path path(place);
    path_ =
        (path.parent_path() / ("." + path.filename().string() + "." + std::to_string(::getpid())))
            .string();
    remove();
  }
  ~TemporaryFile() { remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

  /// Gives the file its name, which must still be free.
  void moveTo(const std::string& place) const {
    const bool linked = ::link(path_.c_str(), place.c_str()) == 0;
    const bool moved =
        linked || (errno != EEXIST && ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, place.c_str(),
                                                  RENAME_NOREPLACE) == 0);
    if (moved) return;
    const int error = errno;
    if (error == EEXIST) {
      throw FileTrouble(Kind::exists, place + " already exists. Choose another name.");
    }
    throw FileTrouble(Kind::failed, place + " cannot be created: " +
                                        std::generic_category().message(error) + ".");
  }

 private:
  void remove() const {
    ::unlink(path_.c_str());
    ::unlink((path_ + "-journal").c_str());
  }

  std::string path_;
};

/// Makes sure that the directory remembers the new name.
void syncDirectory(const std::string& path) {
  const std::string directory = std::filesystem::path(path).parent_path().string();
  const int descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace

OpenDatabase openDatabase(const std::string& path, const OpeningMode& mode,
                          std::optional<CompanyLock> held) {
  requireCompanyHeader(path, mode.vfs);
  requirePlainNeighbours(path);
  if (mode.writable) requireWritableDirectory(path);
  CompanyLock lock = held ? std::move(*held) : CompanyLock(path);
  Database database(path, Database::Access::read_write, mode.vfs);
  if (mode.writable && database.readOnly()) {
    throw FileTrouble(Kind::read_only, path + " cannot be written. Check its permissions.");
  }
  holdDatabase(database);
  requireSmallSchema(database);
  setDurability(database);
  return {std::move(lock), std::move(database)};
}

CompanyLock makeDatabase(const std::string& place, const std::string& vfs,
                         const std::function<void(Database&)>& fill) {
  requireWritableDirectory(place);
  const TemporaryFile file(place);
  {
    Database database(file.path(), Database::Access::create, vfs, place);
    database.execute("PRAGMA synchronous = EXTRA");
    fill(database);
  }
  CompanyLock lock(file.path());
  file.moveTo(place);
  syncDirectory(place);
  return lock;
}

}  // namespace depcalc
