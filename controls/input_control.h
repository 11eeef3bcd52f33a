// Controls that can have the focus.
#pragma once

#include "controls/control.h"

namespace depcalc {

/// A control that takes the focus and validates before it gives it away.
class InputControl : public Control {
 public:
  /// Raised when the focus is about to move to another control; setting `cancel` keeps it here.
  std::function<void(bool& cancel)> onValidate;

  /// Asks for the focus. The control that has it validates first and may keep it; a control that
  /// has it already, is not shown, or asks while another one validates, changes nothing. Either
  /// way the caller goes on.
  void SetFocus();
  [[nodiscard]] bool hasFocus() const;

 protected:
  using Control::Control;

 private:
  friend class Stage;

  /// Raises Validate. Returns whether the focus may leave.
  bool validate();
};

}  // namespace depcalc
