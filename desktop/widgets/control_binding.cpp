#include "desktop/widgets/control_binding.h"

#include <QApplication>
#include <QKeyEvent>

#include "controls/accessible_text.h"
#include "controls/overhang.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

QString accessibleNameOf(const Control& control) { return qtText(accessibleName(control)); }

ControlBinding::ControlBinding(QWidget& widget, Control& control, Surface& surface, Apply apply)
    : widget_(widget),
      control_(control),
      surface_(surface),
      apply_(std::move(apply)),
      observation_(control.observe([this](Aspect aspect) { changed(aspect); })) {
  surface_.add(control_, widget_);
  widget_.setObjectName(qtText(control_.name()));
  widget_.setAccessibleName(accessibleNameOf(control_));
  widget_.setAccessibleDescription(qtText(accessibleDescription(control_)));
  connect(&surface_, &Surface::restyled, this, [this] {
    place();
    apply_(Aspect::font);
    apply_(Aspect::colours);
    widget_.update();
  });
  place();
  widget_.setVisible(control_.visible());
}

ControlBinding::~ControlBinding() { surface_.remove(control_); }

void ControlBinding::place() {
  if (control_.parent() == nullptr) {
    widget_.resize(scale().rect(placeWithOverhang(static_cast<UserControl&>(control_))).size());
  } else {
    widget_.setGeometry(scale().rect(control_.place()));
  }
}

void ControlBinding::setVisible() {
  // Qt would look for the next widget to take the focus; here nothing has it until the model says.
  const QWidget* const focused = QApplication::focusWidget();
  const bool loses = !control_.visible() && focused != nullptr &&
                     (focused == &widget_ || widget_.isAncestorOf(focused));
  if (loses && surface_.restingWidget() != nullptr) surface_.restingWidget()->setFocus();
  widget_.setVisible(control_.visible());
}

void ControlBinding::changed(Aspect aspect) {
  switch (aspect) {
    case Aspect::visible:
      setVisible();
      break;
    case Aspect::place:
      place();
      break;
    case Aspect::stacking:
      widget_.raise();
      break;
    case Aspect::text:
      widget_.setAccessibleName(accessibleNameOf(control_));
      break;
    default:
      break;
  }
  apply_(aspect);
}

void ControlBinding::pressed() {
  surface_.act([this](User& user) { user.mouseDown(control_); });
}

bool ControlBinding::pressedByKey(int key) {
  if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  surface_.act([this](User& user) { user.click(control_); });
  return true;
}

void ControlBinding::released(const QPoint& at) {
  const bool inside = widget_.isVisible() && widget_.rect().contains(widget_.mapFromGlobal(at));
  surface_.act([this, inside](User& user) { user.mouseUp(inside ? &control_ : nullptr); });
}

InputBinding::InputBinding(QWidget& widget, InputControl& control, Surface& surface, Apply apply)
    : ControlBinding(widget, control, surface, std::move(apply)), control_(control) {
  // Not by click: a press asks the model first, and the model gives the focus.
  widget.setFocusPolicy(Qt::TabFocus);
  widget.installEventFilter(this);
}

bool InputBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (surface().handleKey(key.key(), key.modifiers())) return true;
  }
  if (event->type() == QEvent::FocusIn && !control_.hasFocus()) {
    QMetaObject::invokeMethod(
        this, [this] { askModel(); }, Qt::QueuedConnection);
  }
  return ControlBinding::eventFilter(watched, event);
}

void InputBinding::changed(Aspect aspect) {
  if (aspect == Aspect::focus) followModel();
  ControlBinding::changed(aspect);
}

void InputBinding::followModel() {
  QWidget* const resting = surface().restingWidget();
  if (control_.hasFocus()) {
    widget().setFocus(surface().focusReason());
    // Of a grid, which may be larger than the window, only the current cell matters.
    if (control_.kind() != ControlKind::grid) {
      emit surface().attention(&widget(), widget().rect());
    }
  } else if (surface().stage().focused() == nullptr && resting != nullptr) {
    resting->setFocus();
  }
}

void InputBinding::takeFocusBack() {
  if (control_.hasFocus() && !widget().hasFocus()) widget().setFocus(Qt::MouseFocusReason);
}

/// Something other than the model gave the widget the focus, an assistive tool for instance.
void InputBinding::askModel() {
  if (control_.hasFocus() || !widget().hasFocus()) return;
  surface().act([this](User& user) { user.moveFocus(control_); });
  if (control_.hasFocus()) return;
  const InputControl* const focused = surface().stage().focused();
  QWidget* const owner =
      focused != nullptr ? surface().widget(*focused) : surface().restingWidget();
  if (owner != nullptr) owner->setFocus();
}

}  // namespace depcalc::desktop
