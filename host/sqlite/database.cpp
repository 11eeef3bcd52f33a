#include "host/sqlite/database.h"

#include <sqlite3.h>

#include <cerrno>
#include <new>
#include <system_error>

namespace depcalc {
namespace {

bool meansNoRoom(int system_error) {
  return system_error == ENOSPC || system_error == EDQUOT || system_error == EFBIG;
}

/// The system's reason for a failure, 0 where there is none. SQLite does not keep it when a commit
/// fails; only of a want of room is it certain then that the last error is the one.
int systemErrorOf(sqlite3* handle, int code) {
  const int last = errno;
  const int kept = handle != nullptr ? sqlite3_system_errno(handle) : 0;
  return kept == 0 && (code & 0xFF) == SQLITE_IOERR && meansNoRoom(last) ? last : kept;
}

FileTrouble::Kind kindOf(int code, int system_error) {
  if (meansNoRoom(system_error)) return FileTrouble::Kind::disk_full;
  switch (code & 0xFF) {
    case SQLITE_FULL:
      return FileTrouble::Kind::disk_full;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return FileTrouble::Kind::locked;
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return FileTrouble::Kind::read_only;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_TOOBIG:
      return FileTrouble::Kind::damaged;
    default:
      return FileTrouble::Kind::failed;
  }
}

std::string sentence(FileTrouble::Kind kind, const std::string& path, const std::string& why) {
  switch (kind) {
    case FileTrouble::Kind::disk_full:
      return path + " cannot be written: " + why +
             ". Nothing was changed; make room and try again.";
    case FileTrouble::Kind::locked:
      return path + " is in use. Close it there and try again.";
    case FileTrouble::Kind::read_only:
      return path + " cannot be written: " + why + ". The file and its directory must be writable.";
    case FileTrouble::Kind::damaged:
      return path + " is damaged: " + why + ". Restore a backup.";
    default:
      return path + " cannot be used: " + why + ".";
  }
}

}  // namespace

void Database::Close::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

Database::Database(std::string path, Access access, const std::string& vfs, std::string shown_path)
    : path_(std::move(path)), shown_path_(shown_path.empty() ? path_ : std::move(shown_path)) {
  // One thread at a time has a company, so nothing need be locked at each call.
  const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW |
                    SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE |
                    (access == Access::create ? SQLITE_OPEN_CREATE : 0);
  sqlite3* handle = nullptr;
  const int code =
      sqlite3_open_v2(path_.c_str(), &handle, flags, vfs.empty() ? nullptr : vfs.c_str());
  handle_.reset(handle);
  check(code);
  setDefences();
}

void Database::setDefences() {
  // What the file says is never run: no triggers, no views, no functions out of its schema.
  for (const auto& [option, on] : {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1},
                                   {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                   {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                   {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                   {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                   {SQLITE_DBCONFIG_DQS_DML, 0},
                                   {SQLITE_DBCONFIG_DQS_DDL, 0}}) {
    check(sqlite3_db_config(handle_.get(), option, on, nullptr));
  }
  sqlite3_limit(handle_.get(), SQLITE_LIMIT_ATTACHED, 0);
  // What is larger is refused before there is memory for it.
  sqlite3_limit(handle_.get(), SQLITE_LIMIT_LENGTH, static_cast<int>(most_text_bytes) + 1'024);
  execute("PRAGMA cell_size_check = ON");
  execute("PRAGMA mmap_size = 0");
  execute("PRAGMA temp_store = MEMORY");
}

void Database::check(int code) const {
  if (code != SQLITE_OK) fail(code);
}

void Database::fail(int code) const {
  if (code == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM) throw std::bad_alloc();
  const int system_error = systemErrorOf(handle_.get(), code);
  const FileTrouble::Kind kind = kindOf(code, system_error);
  std::string why = (code & 0xFF) == SQLITE_TOOBIG ? "it contains more than a company file may hold"
                                                   : sqlite3_errstr(code & 0xFF);
  if (kind == FileTrouble::Kind::disk_full) {
    why = system_error == EFBIG ? "it would exceed the size allowed for files here"
                                : "the disk is full";
  }
  if (kind == FileTrouble::Kind::failed && system_error != 0) {
    why = std::generic_category().message(system_error);
  }
  throw FileTrouble(kind, sentence(kind, shown_path_, why), {why});
}

void Database::execute(const std::string& sql) {
  check(sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

bool Database::tryExecute(const std::string& sql) {
  const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if ((code & 0xFF) == SQLITE_BUSY) return false;
  check(code);
  return true;
}

std::int64_t Database::integer(const std::string& sql) {
  Statement statement = prepare(sql);
  return statement.step() ? statement.integer(0) : 0;
}

std::string Database::text(const std::string& sql) {
  Statement statement = prepare(sql);
  return statement.step() ? std::string(statement.text(0)) : std::string();
}

Statement Database::prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  check(sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size()), &statement,
                           nullptr));
  return {*this, statement};
}

std::string Database::beginning(std::size_t size) {
  sqlite3_file* file = nullptr;
  check(sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file));
  std::string bytes(size, '\0');
  const int code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(size), 0);
  if (code != SQLITE_IOERR_SHORT_READ) check(code);
  return bytes;
}

void Database::copyFrom(Database& source) {
  sqlite3_backup* const copy =
      sqlite3_backup_init(handle_.get(), "main", source.handle_.get(), "main");
  if (copy == nullptr) fail(sqlite3_extended_errcode(handle_.get()));
  sqlite3_backup_step(copy, -1);
  check(sqlite3_backup_finish(copy));
}

bool Database::readOnly() const { return sqlite3_db_readonly(handle_.get(), "main") == 1; }

bool Database::inTransaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }

Statement::Statement(Database& database, sqlite3_stmt* statement)
    : database_(&database), statement_(statement) {}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement& Statement::bind(int parameter, std::int64_t value) {
  database_->check(sqlite3_bind_int64(statement_.get(), parameter, value));
  return *this;
}

Statement& Statement::bind(int parameter, std::string_view text) {
  if (text.size() > most_text_bytes) {
    throw FileTrouble(FileTrouble::Kind::failed, database_->path() +
                                                     " cannot hold text of more than " +
                                                     std::to_string(most_text_bytes) + " bytes.");
  }
  database_->check(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(),
                                       SQLITE_STATIC, SQLITE_UTF8));
  return *this;
}

bool Statement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  sqlite3_reset(statement_.get());
  if (code != SQLITE_DONE) database_->fail(code);
  return false;
}

void Statement::run() {
  while (step()) {
  }
}

bool Statement::isInteger(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER;
}

bool Statement::isText(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_TEXT;
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

std::string_view Statement::text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  if (text != nullptr) return {text, size};
  const int code = sqlite3_errcode(sqlite3_db_handle(statement_.get()));
  if (code == SQLITE_NOMEM) database_->fail(code);
  return {};
}

}  // namespace depcalc
