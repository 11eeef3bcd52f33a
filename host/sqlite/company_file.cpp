#include "host/sqlite/company_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#include "host/fiscal_year.h"
#include "host/sqlite/company_contents.h"
#include "host/sqlite/company_path.h"
#include "host/sqlite/company_schema.h"
#include "host/sqlite/database.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// Trouble met while a file is opened or made is the answer, not an error.
template <typename Opening>
SqliteCompanyFile::Opened asAnswer(const std::string& path, Opening opening) {
  try {
    return opening();
  } catch (FileTrouble& trouble) {
    return std::move(trouble);
  } catch (const std::bad_alloc&) {
    return FileTrouble(Kind::failed, path + " cannot be opened: out of memory.");
  }
}

/// Takes the lock that is kept until the file is closed. A file that cannot be written is held
/// against writers only.
void lock(Database& database) {
  database.execute("PRAGMA locking_mode = EXCLUSIVE");
  const bool locked = database.readOnly() ? database.tryExecute("PRAGMA user_version")
                                          : database.tryExecute("BEGIN EXCLUSIVE; COMMIT");
  if (locked) return;
  throw FileTrouble(Kind::locked, database.path() + " is in use" + lockHolder(database.path()) +
                                      ". Close it there and try again.");
}

/// Every commit reaches the disk before it returns, its directory entry included.
void setDurability(Database& database) {
  if (database.readOnly()) return;
  database.execute("PRAGMA synchronous = EXTRA");
  database.execute("PRAGMA journal_mode = DELETE");
  database.execute("PRAGMA journal_size_limit = 1048576");
  database.execute("PRAGMA cache_size = -16384");
}

Database openLocked(const std::string& path, const SqliteCompanyFile::Options& options) {
  requireCompanyHeader(path, options.vfs);
  requirePlainNeighbours(path);
  if (options.writable) requireWritableDirectory(path);
  Database database(path, Database::Access::read_write, options.vfs);
  if (options.writable && database.readOnly()) {
    throw FileTrouble(Kind::read_only, path + " cannot be written. Its permissions must allow it.");
  }
  lock(database);
  requireSmallSchema(database);
  setDurability(database);
  return database;
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
      throw FileTrouble(Kind::exists, place + " exists. Choose a name that is not taken.");
    }
    throw FileTrouble(Kind::failed,
                      place + " cannot be made: " + std::generic_category().message(error) + ".");
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

SqliteCompanyFile::SqliteCompanyFile(std::string path, std::shared_ptr<CompanyContents> contents,
                                     Options options)
    : path_(std::move(path)),
      contents_(std::move(contents)),
      options_(std::move(options)),
      picture_(std::make_shared<const HostPicture>()) {}

SqliteCompanyFile::~SqliteCompanyFile() { contents_->close(); }

SqliteCompanyFile::Opened SqliteCompanyFile::create(const std::string& path,
                                                    const CompanyInfo& info,
                                                    const Options& options) {
  const auto made = asAnswer(path, [&]() -> Opened {
    if (info.first_month < 1 || info.first_month > 12) throw RuntimeError::invalidCall();
    const std::string place = resolvedNewPath(path);
    requireWritableDirectory(place);
    const TemporaryFile file(place);
    {
      Database database(file.path(), Database::Access::create, options.vfs, place);
      database.execute("PRAGMA synchronous = EXTRA");
      writeNewCompany(database, info);
    }
    file.moveTo(place);
    syncDirectory(place);
    return std::shared_ptr<SqliteCompanyFile>();
  });
  return std::holds_alternative<FileTrouble>(made) ? made : open(path, options);
}

SqliteCompanyFile::Opened SqliteCompanyFile::open(const std::string& path, const Options& options) {
  return asAnswer(path, [&]() -> Opened {
    const std::string resolved = resolvedCompanyPath(path);
    auto contents = std::make_shared<CompanyContents>(openLocked(resolved, options));
    return std::shared_ptr<SqliteCompanyFile>(
        new SqliteCompanyFile(resolved, std::move(contents), options));
  });
}

std::shared_ptr<HostTable> SqliteCompanyFile::OpenTable(std::string_view name) {
  contents_->requireOpen();
  if (name.empty()) throw RuntimeError::invalidCall();
  // The records' gate is the contents: whoever has the table keeps both.
  return tableOver({contents_, contents_->table(name).get()});
}

Date SqliteCompanyFile::FiscalYearStart() const {
  return currentFiscalYearStart(contents_->info().first_month, options_.today());
}

bool SqliteCompanyFile::IsMultiUser() const { return contents_->info().multi_user; }

std::shared_ptr<const HostPicture> SqliteCompanyFile::PalettePicture() const {
  contents_->requireOpen();
  return picture_;
}

HostUnitOfWork* SqliteCompanyFile::unitOfWork() { return contents_.get(); }

const CompanyInfo& SqliteCompanyFile::info() const { return contents_->info(); }

void SqliteCompanyFile::info(const CompanyInfo& info) { contents_->info(info); }

void SqliteCompanyFile::refuseChanges() noexcept { contents_->refuseChanges(); }

std::optional<FileTrouble> SqliteCompanyFile::takeTrouble() { return contents_->takeTrouble(); }

void SqliteCompanyFile::close() {
  if (!contents_->isOpen()) return;
  listeners_.raise(&HostCompanyFileEvents::CompanyFileClosing);
  contents_->close();
}

}  // namespace depcalc
