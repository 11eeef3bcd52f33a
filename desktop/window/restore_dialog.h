// File > Restore Backup.
#pragma once

#include <QDialog>
#include <optional>

#include "desktop/host/backups.h"

class QListWidget;

namespace depcalc::desktop {

/// Lists the backups of a company, the newest first.
class RestoreDialog : public QDialog {
  Q_OBJECT

 public:
  /// `assets` has the number in each backup, nothing for one that cannot be opened.
  RestoreDialog(QVector<Backup> backups, const QVector<std::optional<int>>& assets,
                QWidget* parent);

  [[nodiscard]] const Backup& chosen() const;

 private:
  QVector<Backup> backups_;
  QListWidget* list_;
};

}  // namespace depcalc::desktop
