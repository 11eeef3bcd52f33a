#include "windows/controls/field_window.h"

namespace depcalc::native {

LRESULT FieldWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  // An open list asks its field.
  if (message == WM_CTLCOLORLISTBOX) return colours(reinterpret_cast<HDC>(wide));
  if (message == WM_ERASEBKGND) return original(message, wide, low);
  return ControlWindow::handleMessage(message, wide, low);
}

LRESULT FieldWindow::colours(HDC dc) {
  const Tones& tones = surface().tones();
  const COLORREF ground = tones.ground(control().backColour());
  SetTextColor(dc, tones.ink(control().foreColour()));
  SetBkColor(dc, ground);
  ground_ = BrushHandle(CreateSolidBrush(ground));
  return reinterpret_cast<LRESULT>(ground_.get());
}

bool FieldWindow::pressed() {
  auto& input = static_cast<InputControl&>(control());
  surface().act([&input](User& user) { user.mouseDown(input); });
  if (!alive() || !input.hasFocus()) return false;
  if (GetFocus() != handle()) SetFocus(handle());
  if (alive()) surface().forgetKeys();
  return alive();
}

}  // namespace depcalc::native
