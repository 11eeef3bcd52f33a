#include "tests/host/sqlite/crashing_disk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

namespace depcalc::testing_support {
namespace {

using Kind = DiskChange::Kind;

constexpr std::size_t sector = 512;

void put(std::string& content, std::size_t at, std::string_view bytes) {
  if (content.size() < at + bytes.size()) content.resize(at + bytes.size());
  content.replace(at, bytes.size(), bytes);
}

/// Some of the sectors that a write covers.
void putTorn(std::string& content, std::size_t at, std::string_view bytes, std::mt19937& random) {
  while (!bytes.empty()) {
    const std::size_t size = std::min(bytes.size(), sector - at % sector);
    if (random() % 2 == 0) put(content, at, bytes.substr(0, size));
    at += size;
    bytes.remove_prefix(size);
  }
}

}  // namespace

CrashingDisk::CrashingDisk(std::function<void(int)> about_to)
    : about_to_(std::move(about_to)),
      vfs_("crashing", [this](const DiskChange& change) { return note(change); }) {}

void CrashingDisk::trust(const std::string& path) {
  Name& name = names_[path];
  name = Name();
  std::ifstream file(path, std::ios::binary);
  name.exists = name.now.entered = static_cast<bool>(file);
  name.now.synced.assign(std::istreambuf_iterator<char>(file), {});
}

int CrashingDisk::note(const DiskChange& change) {
  about_to_(changes_++);
  Name& name = names_[std::string(change.path)];
  switch (change.kind) {
    case Kind::create:
      name.now = Image();
      name.exists = true;
      break;
    case Kind::write:
    case Kind::truncate:
      name.now.waiting.push_back(
          {change.kind, static_cast<std::size_t>(change.at), std::string(change.bytes)});
      break;
    case Kind::sync:
      noteSync(name);
      break;
    case Kind::remove:
      noteRemoval(name, change.lasts);
      break;
  }
  return 0;
}

void CrashingDisk::noteSync(Name& name) {
  std::mt19937 unused;
  name.now.synced = contentOf(name.now, Loss::nothing, unused);
  name.now.waiting.clear();
  // SQLite syncs the directory with a new file's first sync.
  name.now.entered = true;
  name.may_be_former = false;
}

void CrashingDisk::noteRemoval(Name& name, bool lasts) {
  if (!lasts && name.now.entered) {
    name.former = std::move(name.now);
    name.may_be_former = true;
  } else if (lasts) {
    name.may_be_former = false;
  }
  name.now = Image();
  name.exists = false;
}

bool CrashingDisk::owes() const {
  return std::any_of(names_.begin(), names_.end(), [](const auto& entry) {
    const Name& name = entry.second;
    return name.may_be_former || (name.exists && (!name.now.entered || !name.now.waiting.empty()));
  });
}

std::string CrashingDisk::contentOf(const Image& image, Loss loss, std::mt19937& random) {
  std::string content = image.synced;
  if (loss == Loss::everything) return content;
  // Now nearly all is lost, now nearly nothing.
  const std::mt19937::result_type lost_of_8 = loss == Loss::some ? 1 + random() % 7 : 0;
  for (const Waiting& change : image.waiting) {
    if (random() % 8 < lost_of_8) continue;
    if (change.kind == Kind::truncate) {
      content.resize(change.at);
    } else if (loss == Loss::some && random() % 4 == 0) {
      putTorn(content, change.at, change.bytes, random);
    } else {
      put(content, change.at, change.bytes);
    }
  }
  return content;
}

void CrashingDisk::leave(const std::string& path, const std::string& place, Loss loss,
                         std::mt19937& random) {
  for (const char* ending : {"", "-journal"}) {
    std::filesystem::remove(place + ending);
    const auto found = names_.find(path + ending);
    if (found == names_.end()) continue;
    const Name& name = found->second;
    const Image* left = name.exists ? &name.now : nullptr;
    const bool certain = name.exists ? name.now.entered : !name.may_be_former;
    const bool lost = loss == Loss::everything || (loss == Loss::some && random() % 2 == 0);
    if (!certain && lost) left = name.may_be_former ? &name.former : nullptr;
    if (left == nullptr) continue;
    std::ofstream(place + ending, std::ios::binary) << contentOf(*left, loss, random);
  }
}

}  // namespace depcalc::testing_support
