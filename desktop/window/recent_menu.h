// File > Recent Companies.
#pragma once

#include <QObject>

#include "desktop/window/settings.h"

class QMenu;

namespace depcalc::desktop {

/// Lists the companies that were opened last, anew each time it is shown.
class RecentMenu : public QObject {
  Q_OBJECT

 public:
  /// Both live longer than this.
  RecentMenu(QMenu& menu, const Settings& settings);

 signals:
  void chosen(const QString& path);

 private:
  void fill();

  QMenu& menu_;
  const Settings& settings_;
};

}  // namespace depcalc::desktop
