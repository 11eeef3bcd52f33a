#include "desktop/window/side_dock.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMainWindow>

namespace depcalc::desktop {

SideDock::SideDock(Part part, QAction& wanted, Settings& settings, std::function<void()> leave,
                   QMainWindow& window)
    : QDockWidget(part.title, &window),
      part_(std::move(part)),
      wanted_(wanted),
      settings_(settings),
      leave_(std::move(leave)),
      window_(window) {
  setObjectName(part_.name + QStringLiteral("Dock"));
  setAccessibleName(part_.title);
  setFeatures(DockWidgetClosable);
  setAllowedAreas(part_.area);
  hide();
  window_.addDockWidget(part_.area, this);
}

void SideDock::stand(bool on) {
  if (on == !isHidden()) return;
  if (on) {
    show();
    const int width = settings_.width(part_.name);
    window_.resizeDocks({this}, {width > 0 ? width : part_.usual_width}, Qt::Horizontal);
    return;
  }
  rememberWidth();
  // Qt would look for the next widget to take the keys, and a field of the page validates for that.
  const QWidget* const keys = QApplication::focusWidget();
  if (keys != nullptr && isAncestorOf(keys)) leave_();
  hide();
}

void SideDock::rememberWidth() {
  if (isVisible()) settings_.setWidth(part_.name, width());
}

/// By its own button: the same as the item of the menu.
void SideDock::closeEvent(QCloseEvent* event) {
  event->ignore();
  wanted_.trigger();
}

}  // namespace depcalc::desktop
