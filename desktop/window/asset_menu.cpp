#include "desktop/window/asset_menu.h"

#include <QMenu>
#include <algorithm>

#include "desktop/widgets/text_block.h"
#include "desktop/window/calculator.h"

namespace depcalc::desktop {

AssetMenu::AssetMenu(QMenu& menu, std::function<Calculator*()> calculator)
    : QObject(&menu), calculator_(std::move(calculator)) {
  // No screen with a Delete button has a field to type in.
  add(menu, tr("&New"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), "new");
  add(menu, tr("&Edit"), QKeySequence(Qt::CTRL | Qt::Key_E), "edit");
  add(menu, tr("&Delete"), QKeySequence(Qt::Key_Delete), "delete");
  menu.addSeparator();
  add(menu, tr("&Calculate"), QKeySequence(Qt::Key_F9), "calc");
  add(menu, tr("&Save"), QKeySequence::Save, "save");
  enable();
}

void AssetMenu::add(QMenu& menu, const QString& text, const QKeySequence& key,
                    const char* picture) {
  QAction* const action = menu.addAction(text);
  action->setShortcut(key);
  action->setData(QString::fromLatin1(picture));
  connect(action, &QAction::triggered, this, [this, action] { press(action->data().toString()); });
  actions_ << action;
}

void AssetMenu::enable() {
  for (QAction* action : actions_) action->setEnabled(button(action->data().toString()) != nullptr);
}

QAction* AssetMenu::item(const char* picture) const {
  const auto named = [picture](const QAction* at) {
    return at->data().toString() == QLatin1String(picture);
  };
  const auto found = std::find_if(actions_.begin(), actions_.end(), named);
  return found == actions_.end() ? nullptr : *found;
}

void AssetMenu::cellOpened(const Grid& grid) {
  Calculator* const calculator = calculator_();
  if (calculator == nullptr) return;
  const DepCalcView* const view = calculator->assetRegister();
  if (view != nullptr && &view->AssetViewTable == &grid) press(QStringLiteral("edit"));
}

/// The button itself, not the picture of it pressed.
PictureButton* AssetMenu::button(const QString& picture) const {
  Calculator* const calculator = calculator_();
  const UserControl* const screen =
      calculator == nullptr ? nullptr : calculator->container().visibleScreen();
  if (screen == nullptr) return nullptr;
  for (Control* child : screen->children()) {
    auto* const found = dynamic_cast<PictureButton*>(child);
    const bool shown = found != nullptr && found->isShown() && found->under() == nullptr;
    if (shown && qtText(found->picture()) == picture) return found;
  }
  return nullptr;
}

void AssetMenu::press(const QString& picture) {
  PictureButton* const pressed = button(picture);
  if (pressed == nullptr) return;
  calculator_()->surface().act([pressed](User& user) { user.click(*pressed); });
}

}  // namespace depcalc::desktop
