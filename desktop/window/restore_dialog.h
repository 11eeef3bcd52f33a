// File > Restore Backup.
#pragma once

#include <QDialog>

#include "desktop/host/backups.h"

class QListWidget;

namespace depcalc::desktop {

/// Lists the backups of a company, the newest first.
class RestoreDialog : public QDialog {
  Q_OBJECT

 public:
  RestoreDialog(QVector<Backup> backups, QWidget* parent);

  [[nodiscard]] const Backup& chosen() const;

 private:
  QVector<Backup> backups_;
  QListWidget* list_;
};

}  // namespace depcalc::desktop
