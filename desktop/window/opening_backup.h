// The backup that each opening of a company leaves behind.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "desktop/host/backups.h"

namespace depcalc::desktop {

/// The copy taken when the company was opened. It counts from the first change.
class OpeningBackup {
 public:
  explicit OpeningBackup(Backups& backups) : backups_(backups) {}

  /// A company is open, as of this revision.
  void begin(std::optional<std::uint64_t> revision);
  /// What start-up refreshes is no change of the user's.
  void allow(std::optional<std::uint64_t> revision);
  /// Keeps the copy where the company has been changed since. False where that was tried and could
  /// not be done.
  [[nodiscard]] bool follow(const QString& path, std::optional<std::uint64_t> revision);
  /// Keeps the copy of the company that was opened just now, before anything is changed. False
  /// where there is no backup of it then.
  [[nodiscard]] bool keepUnchanged(const QString& path);

 private:
  [[nodiscard]] QString newest(const QString& path) const;

  Backups& backups_;
  std::uint64_t revision_ = 0;
  bool kept_ = false;
};

}  // namespace depcalc::desktop
