// What the controls of one calculator share: focus, pending paints, mouse and site.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "controls/input_control.h"
#include "controls/site.h"
#include "controls/trace.h"
#include "controls/user_control.h"

namespace depcalc {

/// Lives longer than the controls on it. Only one control has the focus, and only those that
/// derive from InputControl can have it: clicking anything else validates nothing.
class Stage {
 public:
  /// `trace`, where given, hears of everything that happens.
  explicit Stage(Site& site, Trace* trace = nullptr) : site_(site), trace_(trace) {}
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  [[nodiscard]] Site& site() const { return site_; }
  BoxAnswer messageBox(const MessageBox& box);

  [[nodiscard]] InputControl* focused() const { return focused_; }
  /// Moves the focus as InputControl::SetFocus says. Returns whether `target` has it now.
  bool moveFocus(InputControl& target);
  /// Lets the control that has the focus validate where it stands. Returns whether it agreed.
  bool validateFocused();

  /// Delivers the paints that are due, those that become due meanwhile included.
  void pumpPaint();
  /// The window was covered or minimised: everything shown is due for a paint.
  void expose();

  /// The press that is under way has acted: its release does nothing.
  void swallowRelease() { pressed_ = nullptr; }

  /// How the container gives a user control the host's palette; nothing at first.
  void setHostPalette(std::function<void(UserControl&)> apply) { host_palette_ = std::move(apply); }
  void applyHostPalette(UserControl& target) const {
    if (host_palette_) host_palette_(target);
  }

  /// The outermost controls.
  [[nodiscard]] const std::vector<UserControl*>& roots() const { return roots_; }

 private:
  friend class Control;
  friend class User;
  friend class UserControl;

  void forget(const Control& control);
  void dropFocusInside(const Control& control);
  void setFocused(InputControl* control);
  void traceEvent(std::string_view control, std::string_view event) const {
    if (trace_ != nullptr) trace_->event(control, event);
  }

  Site& site_;
  Trace* trace_;
  std::vector<UserControl*> roots_;
  InputControl* focused_ = nullptr;
  bool validating_ = false;
  Control* pressed_ = nullptr;
  std::function<void(UserControl&)> host_palette_;
};

}  // namespace depcalc
