#include "host/sqlite/company_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "host/sqlite/lock_holder.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// SQLite's bytes for locks are the 512 from 1 GiB on, the last 510 of them those that readers
/// share and a writer has alone. The next one is ours, on the page that SQLite leaves empty.
constexpr off_t sqlite_shared = 0x4000'0002;
constexpr off_t sqlite_shared_size = 510;
constexpr off_t our_byte = 0x4000'0200;

[[noreturn]] void refuse(const std::string& path, const std::string& holder) {
  throw FileTrouble(Kind::locked, path + " is in use" + holder + ". Close it there and try again.");
}

struct flock range(int type, off_t start, off_t size) {
  struct flock lock {};
  lock.l_type = static_cast<short>(type);
  lock.l_whence = SEEK_SET;
  lock.l_start = start;
  lock.l_len = size;
  return lock;
}

/// Whether a lock of the whole file would stand in the way of SQLite's: file systems of a network
/// make it one of bytes, all of them.
bool turnsFlockIntoBytes(int descriptor) {
  struct statfs system {};
  if (::fstatfs(descriptor, &system) != 0) return false;
  // NFS, SMB in its three numbers, 9P, AFS.
  constexpr unsigned kinds[] = {0x6969, 0x517B, 0xFF53'4D42, 0xFE53'4D42, 0x0102'1997, 0x5346'414F};
  return std::find(std::begin(kinds), std::end(kinds), static_cast<unsigned>(system.f_type)) !=
         std::end(kinds);
}

/// 0, or the system's error.
int lockWhole(int descriptor, bool alone) {
  return ::flock(descriptor, (alone ? LOCK_EX : LOCK_SH) | LOCK_NB) == 0 ? 0 : errno;
}

int lockByte(int descriptor, bool alone) {
  struct flock lock = range(alone ? F_WRLCK : F_RDLCK, our_byte, 1);
  return ::fcntl(descriptor, F_OFD_SETLK, &lock) == 0 ? 0 : errno;
}

bool meansHeld(int error) { return error == EWOULDBLOCK || error == EAGAIN || error == EACCES; }

/// The whole file, since the system then tells who holds it; else a byte of it. A file system that
/// has neither has SQLite's lock alone.
bool isTaken(int descriptor, bool alone, CompanyLock::Way way) {
  const bool bytes = way == CompanyLock::Way::one_byte || turnsFlockIntoBytes(descriptor);
  int error = bytes ? ENOTSUP : lockWhole(descriptor, alone);
  if (error != 0 && !meansHeld(error)) error = lockByte(descriptor, alone);
  return !meansHeld(error);
}

void giveBack(int descriptor) {
  // A process that was started meanwhile may have the descriptor as well.
  ::flock(descriptor, LOCK_UN);
  struct flock lock = range(F_UNLCK, our_byte, 1);
  ::fcntl(descriptor, F_OFD_SETLK, &lock);
  ::close(descriptor);
}

}  // namespace

CompanyLock::CompanyLock(const std::string& path, Way way) {
  // To open it once more and close it would drop SQLite's lock.
  if (isLockedHere(path)) refuse(path, " by this program");
  constexpr int flags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  bool alone = true;
  descriptor_ = ::open(path.c_str(), O_RDWR | flags);
  if (descriptor_ < 0) {
    alone = false;
    descriptor_ = ::open(path.c_str(), O_RDONLY | flags);
  }
  if (descriptor_ < 0) {
    throw FileTrouble(Kind::failed,
                      path + " cannot be opened: " + std::generic_category().message(errno) + ".");
  }
  if (isTaken(descriptor_, alone, way)) return;
  ::close(descriptor_);
  refuse(path, lockHolder(path));
}

CompanyLock::~CompanyLock() {
  if (descriptor_ >= 0) giveBack(descriptor_);
}

CompanyLock::CompanyLock(CompanyLock&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

CompanyLock& CompanyLock::operator=(CompanyLock&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

void CompanyLock::requireInPlace(const std::string& path) const {
  struct stat ours {};
  struct stat there {};
  if (::fstat(descriptor_, &ours) != 0 || ::stat(path.c_str(), &there) != 0) {
    throw FileTrouble(Kind::lost, path +
                                      " is no longer there: it was removed or renamed while it was "
                                      "open. Put it back and try again.");
  }
  if (ours.st_dev == there.st_dev && ours.st_ino == there.st_ino) return;
  throw FileTrouble(Kind::lost, path +
                                    " is now a different file: it was replaced while it was open. "
                                    "Put the original back and try again.");
}

bool CompanyLock::sqliteHolds() const {
  struct flock probe = range(F_WRLCK, sqlite_shared, sqlite_shared_size);
  return ::fcntl(descriptor_, F_OFD_GETLK, &probe) == 0 && probe.l_type == F_WRLCK &&
         probe.l_pid == ::getpid();
}

void holdDatabase(Database& database) {
  database.execute("PRAGMA locking_mode = EXCLUSIVE");
  const bool locked = database.readOnly() ? database.tryExecute("PRAGMA user_version")
                                          : database.tryExecute("BEGIN EXCLUSIVE; COMMIT");
  if (!locked) refuse(database.path(), lockHolder(database.path()));
}

void holdDatabaseAgain(Database& database) {
  // SQLite believes that it has the lock until it has given it back: at the end of a reading.
  database.execute("PRAGMA locking_mode = NORMAL");
  if (!database.tryExecute("SELECT count(*) FROM company")) {
    refuse(database.path(), lockHolder(database.path()));
  }
  holdDatabase(database);
}

}  // namespace depcalc
