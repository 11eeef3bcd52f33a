#include "controls/stage.h"

#include <algorithm>
#include <utility>

namespace depcalc {
namespace {

bool contains(const Control& outer, const Control& control) {
  for (const Control* at = &control; at != nullptr; at = at->parent()) {
    if (at == &outer) return true;
  }
  return false;
}

/// The flag is up while it lives, whatever the handlers throw.
class Flagged {
 public:
  explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flagged() { flag_ = false; }
  Flagged(const Flagged&) = delete;
  Flagged& operator=(const Flagged&) = delete;

 private:
  bool& flag_;
};

}  // namespace

BoxAnswer Stage::messageBox(const MessageBox& box) {
  const BoxAnswer answer = site_.showBox(box);
  if (trace_ != nullptr) trace_->box(box, answer);
  return answer;
}

bool Stage::moveFocus(InputControl& target) {
  if (focused_ == &target) return true;
  if (validating_ || !target.isShown()) return false;
  if (!validateFocused() || !target.isShown()) return false;
  setFocused(&target);
  return true;
}

bool Stage::validateFocused() {
  if (focused_ == nullptr || validating_) return true;
  const Flagged validating(validating_);
  return focused_->validate();
}

void Stage::setFocused(InputControl* control) {
  InputControl* const old = std::exchange(focused_, control);
  if (old == control) return;
  if (old != nullptr) old->changed(Aspect::focus);
  if (control != nullptr) control->changed(Aspect::focus);
}

void Stage::dropFocusInside(const Control& control) {
  if (focused_ != nullptr && contains(control, *focused_)) setFocused(nullptr);
}

void Stage::forget(const Control& control) {
  if (focused_ == &control) focused_ = nullptr;
  if (pressed_ == &control) pressed_ = nullptr;
}

namespace {

void collectUserControls(UserControl& at, std::vector<UserControl*>& found) {
  found.push_back(&at);
  for (Control* child : at.children()) {
    if (child->kind() == ControlKind::userControl) {
      collectUserControls(static_cast<UserControl&>(*child), found);
    }
  }
}

std::vector<UserControl*> userControls(const std::vector<UserControl*>& roots) {
  std::vector<UserControl*> found;
  for (UserControl* root : roots) collectUserControls(*root, found);
  return found;
}

}  // namespace

void Stage::pumpPaint() {
  for (bool painted = true; painted;) {
    painted = false;
    for (UserControl* control : userControls(roots_)) {
      if (!control->paint_due_ || !control->isShown()) continue;
      control->paint_due_ = false;
      painted = true;
      control->traceEvent("Paint");
      control->Paint();
    }
  }
}

void Stage::expose() {
  for (UserControl* control : userControls(roots_)) control->paint_due_ |= control->isShown();
}

}  // namespace depcalc
