// One of the parts beside the calculator's page.
#pragma once

#include <QDockWidget>
#include <functional>

#include "desktop/window/settings.h"

class QAction;
class QMainWindow;

namespace depcalc::desktop {

/// Stands at one side of the window while a company is open and its item in the View menu is
/// checked; how wide it is, and whether it is wanted, is remembered.
class SideDock : public QDockWidget {
  Q_OBJECT

 public:
  struct Part {
    QString name;  ///< in the settings
    QString title;
    Qt::DockWidgetArea area;
    int usual_width;  ///< pixels
  };

  /// `wanted` is the item of the menu; `leave` gives the keys back to the page.
  SideDock(Part part, QAction& wanted, Settings& settings, std::function<void()> leave,
           QMainWindow& window);

  /// Stands there now, or does not, whatever the user wants.
  void stand(bool on);
  void rememberWidth();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Part part_;
  QAction& wanted_;
  Settings& settings_;
  std::function<void()> leave_;
  QMainWindow& window_;
};

}  // namespace depcalc::desktop
