// A disk that forgets what was not synced.
#pragma once

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/host/sqlite/watched_vfs.h"

namespace depcalc::testing_support {

/// What a disk would hold of a company file and its journal if the power failed now. Writes and
/// truncations since a file's last sync may be there or not, each of them, and of a write some
/// sectors only; so may a file that was made and never synced, or removed without its directory.
class CrashingDisk {
 public:
  enum class Loss { everything, nothing, some };

  /// Before every change `about_to` is told how many there were.
  explicit CrashingDisk(std::function<void(int changes)> about_to);

  [[nodiscard]] const std::string& vfs() const { return vfs_.name(); }
  /// Takes what is in the file as safe. No file: forgets it.
  void trust(const std::string& path);
  /// Writes what a power failure would leave of `path` and its journal to another place.
  void leave(const std::string& path, const std::string& place, Loss loss, std::mt19937& random);
  /// Whether a power failure could lose anything.
  [[nodiscard]] bool owes() const;

 private:
  struct Waiting {
    DiskChange::Kind kind;
    std::size_t at;
    std::string bytes;
  };
  struct Image {
    std::string synced;
    std::vector<Waiting> waiting;
    bool entered = false;  ///< the directory has it
  };
  struct Name {
    Image now;
    bool exists = false;
    bool may_be_former = false;  ///< the directory may still have what was removed
    Image former;
  };

  int note(const DiskChange& change);
  void noteSync(Name& name);
  void noteRemoval(Name& name, bool lasts);
  static std::string contentOf(const Image& image, Loss loss, std::mt19937& random);

  std::function<void(int)> about_to_;
  int changes_ = 0;
  std::map<std::string, Name, std::less<>> names_;
  WatchedVfs vfs_;
};

}  // namespace depcalc::testing_support
