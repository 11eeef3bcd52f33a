#include "desktop/widgets/user_control_widget.h"

#include <QPainter>
#include <algorithm>

#include "controls/overhang.h"
#include "desktop/widgets/grid_widget.h"
#include "desktop/widgets/input_widgets.h"
#include "desktop/widgets/picture_button_widget.h"
#include "desktop/widgets/simple_widgets.h"

namespace depcalc::desktop {

QWidget* makeWidget(Control& control, Surface& surface, QWidget* parent) {
  switch (control.kind()) {
    case ControlKind::label:
      return new LabelWidget(static_cast<Label&>(control), surface, parent);
    case ControlKind::textBox:
      return new TextBoxWidget(static_cast<TextBox&>(control), surface, parent);
    case ControlKind::dropDownList:
      return new DropDownListWidget(static_cast<DropDownList&>(control), surface, parent);
    case ControlKind::optionButton:
      return new OptionButtonWidget(static_cast<OptionButton&>(control), surface, parent);
    case ControlKind::pictureButton:
      return new PictureButtonWidget(static_cast<PictureButton&>(control), surface, parent);
    case ControlKind::pictureBox:
      return new PictureBoxWidget(static_cast<PictureBox&>(control), surface, parent);
    case ControlKind::shape:
      return new ShapeWidget(static_cast<Shape&>(control), surface, parent);
    case ControlKind::grid:
      return new GridWidget(static_cast<Grid&>(control), surface, parent);
    case ControlKind::userControl:
      return new UserControlWidget(static_cast<UserControl&>(control), surface, parent);
  }
  return nullptr;
}

UserControlWidget::UserControlWidget(UserControl& control, Surface& surface, QWidget* parent)
    : QWidget(parent),
      control_(control),
      binding_(*this, control, surface, [this](Aspect) { update(); }) {
  std::vector<Control*> children = control.children();
  std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
    return a->stacking() < b->stacking();
  });
  // What is made later lies in front.
  for (Control* child : children) makeWidget(*child, surface, this);
  if (control.parent() == nullptr) makeRoomFor(children, surface);
}

/// What stands beside the outermost control's screen is to be seen, too.
void UserControlWidget::makeRoomFor(const std::vector<Control*>& children, Surface& surface) {
  for (Control* child : children) {
    if (child->kind() != ControlKind::userControl) continue;
    observations_.push_back(child->observe([this, child, &surface](Aspect aspect) {
      if (aspect != Aspect::place && aspect != Aspect::visible) return;
      binding_.place();
      if (child->visible() && floats(*child)) emit surface.appeared(surface.widget(*child));
    }));
  }
}

void UserControlWidget::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), binding_.colours().of(control_.backColour()));
}

void UserControlWidget::mousePressEvent(QMouseEvent*) { binding_.pressed(); }

}  // namespace depcalc::desktop
