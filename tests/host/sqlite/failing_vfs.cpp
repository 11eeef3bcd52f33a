#include "tests/host/sqlite/failing_vfs.h"

#include <sqlite3.h>

namespace depcalc::testing_support {

struct FailingVfs::Layer {
  std::string name = "failing";
  sqlite3_vfs vfs{};
  sqlite3_vfs* below = nullptr;
  sqlite3_io_methods methods{};
  int fail_at = 0;
  int changes = 0;
  bool and_after = false;
  int code = SQLITE_FULL;

  /// What the next change answers instead of being made; success lets it through.
  int refusal() {
    ++changes;
    const bool now = fail_at > 0 && (changes == fail_at || (and_after && changes > fail_at));
    return now ? code : SQLITE_OK;
  }
};

/// A file of the layer: its own head, and behind it the file below.
struct LayeredFile {  // SQLite aligns it, and what follows it, to 8 bytes
  sqlite3_file head;
  void* layer;
  sqlite3_file* below() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

namespace {

LayeredFile* layered(sqlite3_file* file) { return reinterpret_cast<LayeredFile*>(file); }
sqlite3_file* below(sqlite3_file* file) { return layered(file)->below(); }
const sqlite3_io_methods* io(sqlite3_file* file) { return below(file)->pMethods; }

}  // namespace

FailingVfs::FailingVfs() : layer_(std::make_unique<Layer>()) {
  Layer& layer = *layer_;
  layer.below = sqlite3_vfs_find(nullptr);
  layer.vfs = *layer.below;
  layer.vfs.zName = layer.name.c_str();
  layer.vfs.pNext = nullptr;
  layer.vfs.pAppData = &layer;
  layer.vfs.szOsFile = static_cast<int>(sizeof(LayeredFile)) + layer.below->szOsFile;

  using L = FailingVfs::Layer;
  static const auto refuses = [](sqlite3_file* file) {
    return static_cast<L*>(layered(file)->layer)->refusal();
  };
  layer.vfs.xOpen = [](sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags,
                       int* out) {
    auto& here = *static_cast<L*>(vfs->pAppData);
    file->pMethods = nullptr;
    if ((flags & SQLITE_OPEN_MAIN_JOURNAL) != 0) {
      if (const int code = here.refusal()) return code;
    }
    layered(file)->layer = &here;
    const int code = here.below->xOpen(here.below, path, below(file), flags, out);
    if (code == SQLITE_OK) file->pMethods = &here.methods;
    return code;
  };
  layer.vfs.xDelete = [](sqlite3_vfs* vfs, const char* path, int sync) {
    auto& here = *static_cast<L*>(vfs->pAppData);
    if (const int code = here.refusal()) return code;
    return here.below->xDelete(here.below, path, sync);
  };

  sqlite3_io_methods& m = layer.methods;
  m.iVersion = 1;
  m.xClose = [](sqlite3_file* f) { return io(f)->xClose(below(f)); };
  m.xRead = [](sqlite3_file* f, void* to, int size, sqlite3_int64 at) {
    return io(f)->xRead(below(f), to, size, at);
  };
  m.xWrite = [](sqlite3_file* f, const void* from, int size, sqlite3_int64 at) {
    if (const int code = refuses(f)) return code;
    return io(f)->xWrite(below(f), from, size, at);
  };
  m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) {
    if (const int code = refuses(f)) return code;
    return io(f)->xTruncate(below(f), size);
  };
  m.xSync = [](sqlite3_file* f, int flags) {
    if (const int code = refuses(f)) return code;
    return io(f)->xSync(below(f), flags);
  };
  m.xFileSize = [](sqlite3_file* f, sqlite3_int64* size) {
    return io(f)->xFileSize(below(f), size);
  };
  m.xLock = [](sqlite3_file* f, int level) { return io(f)->xLock(below(f), level); };
  m.xUnlock = [](sqlite3_file* f, int level) { return io(f)->xUnlock(below(f), level); };
  m.xCheckReservedLock = [](sqlite3_file* f, int* out) {
    return io(f)->xCheckReservedLock(below(f), out);
  };
  m.xFileControl = [](sqlite3_file* f, int op, void* arg) {
    return io(f)->xFileControl(below(f), op, arg);
  };
  m.xSectorSize = [](sqlite3_file* f) { return io(f)->xSectorSize(below(f)); };
  m.xDeviceCharacteristics = [](sqlite3_file* f) {
    return io(f)->xDeviceCharacteristics(below(f));
  };
  sqlite3_vfs_register(&layer.vfs, 0);
}

FailingVfs::~FailingVfs() { sqlite3_vfs_unregister(&layer_->vfs); }

const std::string& FailingVfs::name() const { return layer_->name; }

void FailingVfs::failAt(int change, Failure failure, bool and_after) {
  layer_->fail_at = change;
  layer_->changes = 0;
  layer_->and_after = and_after;
  layer_->code = failure == Failure::disk_full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
}

int FailingVfs::changes() const { return layer_->changes; }

}  // namespace depcalc::testing_support
