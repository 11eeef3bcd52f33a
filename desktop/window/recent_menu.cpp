#include "desktop/window/recent_menu.h"

#include <QMenu>

#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

RecentMenu::RecentMenu(QMenu& menu, const Settings& settings)
    : QObject(&menu), menu_(menu), settings_(settings) {
  connect(&menu, &QMenu::aboutToShow, this, &RecentMenu::fill);
}

void RecentMenu::fill() {
  menu_.clear();
  int number = 0;
  for (const QString& path : settings_.recent()) {
    const QString name = titleAt(nameAt(path), path).replace(u'&', QStringLiteral("&&"));
    QAction* const action = menu_.addAction(tr("&%1 %2").arg(++number).arg(name));
    action->setToolTip(toolTipText(path));
    connect(action, &QAction::triggered, this, [this, path] { emit chosen(path); });
  }
  menu_.setToolTipsVisible(true);
  if (number == 0) menu_.addAction(tr("None yet"))->setEnabled(false);
}

}  // namespace depcalc::desktop
