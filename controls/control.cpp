#include "controls/control.h"

#include <algorithm>

#include "controls/stage.h"
#include "controls/user_control.h"
#include "values/runtime_error.h"

namespace depcalc {

Control::Control(UserControl& parent, ControlKind kind, std::string name)
    : kind_(kind), name_(std::move(name)), parent_(&parent), stage_(parent.stage()) {
  parent.children_.push_back(this);
  stacking_ = ++parent.front_;
}

Control::Control(Stage& stage, ControlKind kind, std::string name)
    : kind_(kind), name_(std::move(name)), stage_(stage) {}

Control::~Control() {
  stage_.forget(*this);
  if (parent_ != nullptr) std::erase(parent_->children_, this);
}

void Control::setVisible(bool visible) {
  if (!assign(visible_, visible, Aspect::visible)) return;
  if (!visible) stage_.dropFocusInside(*this);
}

bool Control::isShown() const { return visible_ && (parent_ == nullptr || parent_->isShown()); }

void Control::setPlace(const Place& place) {
  if (place.width < 0 || place.height < 0) throw RuntimeError::invalidCall();
  assign(place_, place, Aspect::place);
}

void Control::bringToFront() {
  if (parent_ == nullptr || stacking_ == parent_->front_) return;
  assign(stacking_, ++parent_->front_, Aspect::stacking);
}

Observation Control::observe(Observation::Listener listener) {
  return {listeners_, std::move(listener)};
}

void Control::changed(Aspect aspect) {
  if (listeners_->empty()) return;
  // A listener may end its own observation or another one's.
  const Observation::Listeners hearing = *listeners_;
  for (const auto& listener : hearing) (*listener)(aspect);
}

void Control::raise(std::string_view event, const Handler& handler) {
  traceEvent(event);
  if (handler) handler();
}

void Control::traceEvent(std::string_view event) { stage_.traceEvent(name_, event); }

}  // namespace depcalc
