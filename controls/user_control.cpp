#include "controls/user_control.h"

#include <algorithm>

#include "common/trapped.h"
#include "controls/stage.h"

namespace depcalc {

UserControl::UserControl(Stage& stage, std::string name)
    : Control(stage, ControlKind::userControl, std::move(name)) {
  stage.roots_.push_back(this);
  Control::setVisible(false);
  traceEvent("Initialize");
}

UserControl::UserControl(UserControl& parent, std::string name)
    : Control(parent, ControlKind::userControl, std::move(name)) {
  Control::setVisible(false);
  traceEvent("Initialize");
}

UserControl::~UserControl() {
  traceEvent("Terminate");
  std::erase(stage().roots_, this);
}

Control* UserControl::child(std::string_view name) const {
  const auto found = std::find_if(children_.begin(), children_.end(),
                                  [name](const Control* child) { return child->name() == name; });
  return found == children_.end() ? nullptr : *found;
}

void UserControl::setVisible(bool visible) {
  if (visible == this->visible()) return;
  Control::setVisible(visible);
  paint_due_ = visible;
  traceEvent(visible ? "Show" : "Hide");
  visible ? Show() : Hide();
}

void UserControl::setPlace(const Place& place) {
  const bool resized = place.width != width() || place.height != height();
  Control::setPlace(place);
  if (!resized || !isShown()) return;
  traceEvent("Resize");
  Resize();
}

void UserControl::SetupPalette() {
  trapped("DepCalc::SetupPalette", [this] { stage().applyHostPalette(*this); });
}

BoxAnswer UserControl::messageBox(std::string text, BoxButtons buttons, std::string title) const {
  return stage().messageBox({std::move(text), buttons, std::move(title)});
}

Site& UserControl::site() const { return stage().site(); }

}  // namespace depcalc
