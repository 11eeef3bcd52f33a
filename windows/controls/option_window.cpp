#include "windows/controls/option_window.h"

#include <windowsx.h>

#include <utility>

#include "windows/com/com_text.h"
#include "windows/controls/control_drawing.h"
#include "windows/controls/keys.h"

namespace depcalc::native {

void OptionWindow::create(HWND parent) {
  createNative(parent, L"BUTTON", BS_RADIOBUTTON);
  if (handle() != nullptr) apply(Aspect::text);
}

RECT OptionWindow::windowArea(const RECT& area) const {
  RECT window = area;
  window.left -= surface().zoom().pixels(looks::ring_gap);
  return window;
}

void OptionWindow::apply(Aspect /*aspect*/) {
  if (handle() == nullptr) return;
  SetWindowTextW(handle(), utf16(option_.text()).c_str());
  SendMessageW(handle(), BM_SETCHECK, option_.value() ? BST_CHECKED : BST_UNCHECKED, 0);
  repaint();
}

bool OptionWindow::keyDown(WPARAM key) {
  const std::optional<Direction> direction = directionOf(key);
  if (direction.has_value()) {
    surface().act([&](User& user) { user.arrow(*direction); });
  } else if (key == VK_SPACE) {
    surface().act([this](User& user) { user.click(option_); });
  } else {
    return false;
  }
  return true;
}

void OptionWindow::release(POINT at) {
  if (GetCapture() == handle()) ReleaseCapture();
  if (!std::exchange(pressed_, false)) return;
  RECT area{};
  GetClientRect(handle(), &area);
  Control* const over = PtInRect(&area, at) != FALSE ? &option_ : nullptr;
  surface().act([over](User& user) { user.mouseUp(over); });
}

LRESULT OptionWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_PAINT:
      paint([this](const Canvas& canvas, const RECT& /*part*/) {
        RECT area{};
        GetClientRect(handle(), &area);
        canvas.fill(area, canvas.tones().ground(looks::groundBehind(option_)));
        area.left += surface().zoom().pixels(looks::ring_gap);
        drawOption(canvas, option_, area, GetFocus() == handle());
      });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      SetCapture(handle());
      pressed_ = true;
      pressed();
      return 0;
    case WM_LBUTTONUP:
      release({GET_X_LPARAM(low), GET_Y_LPARAM(low)});
      return 0;
    case WM_KEYDOWN:
      if (keyDown(wide)) return 0;
      break;
    case WM_KEYUP:
    case WM_MOUSEMOVE:
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case BM_SETCHECK:
    case BM_SETSTATE:
    case WM_SETTEXT: {
      const LRESULT result = original(message, wide, low);
      repaint();
      return result;
    }
    default:
      break;
  }
  const LRESULT result = FieldWindow::handleMessage(message, wide, low);
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) repaint();
  return result;
}

}  // namespace depcalc::native
