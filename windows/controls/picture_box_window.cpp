#include "windows/controls/picture_box_window.h"

namespace depcalc::native {

LRESULT PictureBoxWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  if (message != WM_PAINT) return ControlWindow::handleMessage(message, wide, low);
  paint([this](const Canvas& canvas, const RECT& part) {
    canvas.fill(part, canvas.tones().ground(box_.backColour()));
  });
  return 0;
}

}  // namespace depcalc::native
