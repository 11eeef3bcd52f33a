// The hourglass while the program waits for a disk or a server.
#pragma once

#include <QApplication>

namespace depcalc::desktop {

/// Over all windows as long as it lives; no question may be asked under it.
class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace depcalc::desktop
