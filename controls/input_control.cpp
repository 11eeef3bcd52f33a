#include "controls/input_control.h"

#include "controls/stage.h"

namespace depcalc {

void InputControl::SetFocus() { stage().moveFocus(*this); }

bool InputControl::hasFocus() const { return stage().focused() == this; }

bool InputControl::validate() {
  bool cancel = false;
  traceEvent("Validate");
  if (onValidate) onValidate(cancel);
  return !cancel;
}

}  // namespace depcalc
