// The window of a field that is one of the system's own.
#pragma once

#include "windows/controls/control_window.h"

namespace depcalc::native {

/// An EDIT, a COMBOBOX or a radio BUTTON: its parent asks it for its colours, and the model decides
/// whether a press brings it the focus.
class FieldWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;

  LRESULT colours(HDC dc) override;

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  /// A press of the mouse; returns whether the control has the focus now, and its window the keys.
  bool pressed();

 private:
  BrushHandle ground_;
};

}  // namespace depcalc::native
