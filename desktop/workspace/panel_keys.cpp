#include "desktop/workspace/panel_keys.h"

#include <QApplication>
#include <QWidget>

namespace depcalc::desktop {

bool moveKeysWithin(QWidget& panel, bool next) {
  QWidget* const from = QApplication::focusWidget();
  QWidget* const start = from != nullptr && panel.isAncestorOf(from) ? from : &panel;
  const auto step = [next](QWidget* at) {
    return next ? at->nextInFocusChain() : at->previousInFocusChain();
  };
  for (QWidget* at = step(start); at != start; at = step(at)) {
    const bool takes = panel.isAncestorOf(at) && at->isVisible() && at->isEnabled() &&
                       (at->focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
                       at->focusProxy() == nullptr;
    if (!takes) continue;
    at->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return false;
}

}  // namespace depcalc::desktop
