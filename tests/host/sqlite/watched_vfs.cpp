#include "tests/host/sqlite/watched_vfs.h"

#include <sqlite3.h>

#include <utility>

namespace depcalc::testing_support {

using Kind = DiskChange::Kind;

struct WatchedVfs::Layer {
  std::string name;
  Watcher watcher;
  sqlite3_vfs vfs{};
  sqlite3_vfs* below = nullptr;
  sqlite3_io_methods methods{};
};

/// A file of the layer: its own head, and behind it the file below.
struct LayeredFile {  // SQLite aligns it, and what follows it, to 8 bytes
  sqlite3_file head;
  WatchedVfs::Watcher* watcher;
  const char* path;
  sqlite3_file* below() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

namespace {

LayeredFile* layered(sqlite3_file* file) { return reinterpret_cast<LayeredFile*>(file); }
sqlite3_file* below(sqlite3_file* file) { return layered(file)->below(); }
const sqlite3_io_methods* io(sqlite3_file* file) { return below(file)->pMethods; }

int told(sqlite3_file* file, DiskChange change) {
  change.path = layered(file)->path;
  return (*layered(file)->watcher)(change);
}

void fill(sqlite3_io_methods& m) {
  m.iVersion = 1;
  m.xClose = [](sqlite3_file* f) { return io(f)->xClose(below(f)); };
  m.xRead = [](sqlite3_file* f, void* to, int size, sqlite3_int64 at) {
    return io(f)->xRead(below(f), to, size, at);
  };
  m.xWrite = [](sqlite3_file* f, const void* from, int size, sqlite3_int64 at) {
    const std::string_view bytes(static_cast<const char*>(from), static_cast<std::size_t>(size));
    if (const int code = told(f, {.kind = Kind::write, .path = {}, .at = at, .bytes = bytes})) {
      return code;
    }
    return io(f)->xWrite(below(f), from, size, at);
  };
  m.xTruncate = [](sqlite3_file* f, sqlite3_int64 size) {
    if (const int code = told(f, {.kind = Kind::truncate, .path = {}, .at = size, .bytes = {}})) {
      return code;
    }
    return io(f)->xTruncate(below(f), size);
  };
  m.xSync = [](sqlite3_file* f, int flags) {
    if (const int code = told(f, {.kind = Kind::sync, .path = {}, .bytes = {}})) return code;
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
}

}  // namespace

WatchedVfs::WatchedVfs(std::string name, Watcher watcher) : layer_(std::make_unique<Layer>()) {
  Layer& layer = *layer_;
  layer.name = std::move(name);
  layer.watcher = std::move(watcher);
  layer.below = sqlite3_vfs_find(nullptr);
  layer.vfs = *layer.below;
  layer.vfs.zName = layer.name.c_str();
  layer.vfs.pNext = nullptr;
  layer.vfs.pAppData = &layer;
  layer.vfs.szOsFile = static_cast<int>(sizeof(LayeredFile)) + layer.below->szOsFile;
  layer.vfs.xOpen = [](sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags,
                       int* out) {
    auto& here = *static_cast<Layer*>(vfs->pAppData);
    file->pMethods = nullptr;
    int there = 0;
    here.below->xAccess(here.below, path, SQLITE_ACCESS_EXISTS, &there);
    if ((flags & SQLITE_OPEN_CREATE) != 0 && there == 0) {
      if (const int code = here.watcher({.kind = Kind::create, .path = path, .bytes = {}})) {
        return code;
      }
    }
    layered(file)->watcher = &here.watcher;
    layered(file)->path = path;
    const int code = here.below->xOpen(here.below, path, below(file), flags, out);
    if (code == SQLITE_OK) file->pMethods = &here.methods;
    return code;
  };
  layer.vfs.xDelete = [](sqlite3_vfs* vfs, const char* path, int sync) {
    auto& here = *static_cast<Layer*>(vfs->pAppData);
    const DiskChange removal{.kind = Kind::remove, .path = path, .bytes = {}, .lasts = sync != 0};
    if (const int code = here.watcher(removal)) return code;
    return here.below->xDelete(here.below, path, sync);
  };
  fill(layer.methods);
  sqlite3_vfs_register(&layer.vfs, 0);
}

WatchedVfs::~WatchedVfs() { sqlite3_vfs_unregister(&layer_->vfs); }

const std::string& WatchedVfs::name() const { return layer_->name; }

}  // namespace depcalc::testing_support
