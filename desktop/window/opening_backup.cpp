#include "desktop/window/opening_backup.h"

#include "desktop/host/place.h"

namespace depcalc::desktop {

void OpeningBackup::begin(std::optional<std::uint64_t> revision) {
  revision_ = revision.value_or(0);
  kept_ = false;
}

void OpeningBackup::allow(std::optional<std::uint64_t> revision) {
  if (!kept_) revision_ = revision.value_or(0);
}

bool OpeningBackup::follow(const QString& path, std::optional<std::uint64_t> revision) {
  if (kept_ || revision == revision_) return true;
  kept_ = true;
  return backups_.keep(path, QDateTime::currentDateTime());
}

bool OpeningBackup::keepUnchanged(const QString& path) {
  const QString before = newest(path);
  kept_ = backups_.keep(path, QDateTime::currentDateTime());
  return kept_ && (!mayBeThere(path) || newest(path) != before);
}

QString OpeningBackup::newest(const QString& path) const {
  const auto all = backups_.of(path);
  return all.isEmpty() ? QString() : all.front().path;
}

}  // namespace depcalc::desktop
