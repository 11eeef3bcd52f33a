// The parts of a file that is a ZIP archive.
#pragma once

#include <optional>
#include <string>

namespace depcalc {

/// Opened when made.
class ZipParts {
 public:
  explicit ZipParts(const std::string& path);
  ~ZipParts();
  ZipParts(const ZipParts&) = delete;
  ZipParts& operator=(const ZipParts&) = delete;

  [[nodiscard]] bool isOpen() const { return archive_ != nullptr; }

  /// What part `name` holds, unpacked; nothing where there is none, where it is damaged and where
  /// it is larger than 256 MB.
  [[nodiscard]] std::optional<std::string> part(const std::string& name) const;

 private:
  void* archive_;
};

}  // namespace depcalc
