#include "desktop/widgets/accessible_controls.h"

#include <QAccessibleWidget>

#include "desktop/widgets/simple_widgets.h"
#include "desktop/widgets/user_control_widget.h"

namespace depcalc::desktop {
namespace {

/// A label that can be clicked is a link that can be pressed.
class AccessibleLabel : public QAccessibleWidget {
 public:
  explicit AccessibleLabel(LabelWidget& widget)
      : QAccessibleWidget(
            &widget, widget.control().clickable() ? QAccessible::Link : QAccessible::StaticText),
        label_(widget) {}

  [[nodiscard]] QStringList actionNames() const override {
    return label_.control().clickable() ? QStringList{pressAction()} : QStringList();
  }
  void doAction(const QString& name) override {
    if (name == pressAction()) label_.click();
  }

 private:
  LabelWidget& label_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  if (auto* const label = qobject_cast<LabelWidget*>(object)) return new AccessibleLabel(*label);
  auto* const widget = qobject_cast<QWidget*>(object);
  if (qobject_cast<ShapeWidget*>(object) != nullptr ||
      qobject_cast<PictureBoxWidget*>(object) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::Graphic);
  }
  if (qobject_cast<UserControlWidget*>(object) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::Grouping);
  }
  return nullptr;
}

}  // namespace

void installAccessibleControls() { QAccessible::installFactory(makeAccessible); }

}  // namespace depcalc::desktop
