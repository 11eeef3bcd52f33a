#include "tests/host/sqlite/failing_vfs.h"

#include <sqlite3.h>

namespace depcalc::testing_support {
namespace {

int errorOf(DiskChange::Kind kind) {
  using Kind = DiskChange::Kind;
  switch (kind) {
    case Kind::create:
      return SQLITE_CANTOPEN;
    case Kind::write:
      return SQLITE_IOERR_WRITE;
    case Kind::truncate:
      return SQLITE_IOERR_TRUNCATE;
    case Kind::sync:
      return SQLITE_IOERR_FSYNC;
    case Kind::remove:
      return SQLITE_IOERR_DELETE;
  }
  return SQLITE_IOERR;
}

}  // namespace

FailingVfs::FailingVfs()
    : vfs_("failing", [this](const DiskChange& change) { return answer(change.kind); }) {}

int FailingVfs::answer(DiskChange::Kind kind) {
  ++changes_;
  const bool now = fail_at_ > 0 && (changes_ == fail_at_ || (and_after_ && changes_ > fail_at_));
  if (!now && every_ != kind) return SQLITE_OK;
  ++refusals_[static_cast<std::size_t>(kind)];
  return failure_ == Failure::disk_full ? SQLITE_FULL : errorOf(kind);
}

void FailingVfs::failAt(int change, Failure failure, bool and_after) {
  every_.reset();
  fail_at_ = change;
  changes_ = 0;
  and_after_ = and_after;
  failure_ = failure;
}

void FailingVfs::failEvery(DiskChange::Kind kind) {
  failAt(0, Failure::io_error, false);
  every_ = kind;
}

}  // namespace depcalc::testing_support
