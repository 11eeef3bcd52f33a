#include "windows/controls/frame_scrolling.h"

#include <algorithm>

#include "windows/controls/scroll_bars.h"

namespace depcalc::native {

void FrameScrolling::useBar(HWND frame, UINT message, WPARAM code) {
  const int bar = message == WM_HSCROLL ? SB_HORZ : SB_VERT;
  (bar == SB_HORZ ? position_.x : position_.y) = scrolledPosition(frame, bar, code);
}

void FrameScrolling::turnWheel(WPARAM wide) {
  constexpr int lines = 3;
  const int turned = static_cast<short>(HIWORD(wide));
  position_.y -= turned * lines * scroll_line / WHEEL_DELTA;
}

bool FrameScrolling::reveal(HWND frame, const RECT& area) {
  constexpr int margin = 12;  // pixels left around what is to be seen
  RECT client{};
  GetClientRect(frame, &client);
  const auto moved = [](LONG low, LONG high, LONG room) -> LONG {
    if (low < 0) return low - margin;
    return high > room ? std::min(high - room, low) + margin : 0;
  };
  const LONG right = moved(area.left, area.right, client.right);
  const LONG down = moved(area.top, area.bottom, client.bottom);
  position_.x += right;
  position_.y += down;
  return right != 0 || down != 0;
}

/// Each bar takes room that may make the other one necessary.
void FrameScrolling::fit(HWND frame, const SIZE& content) {
  const int thick = GetSystemMetrics(SM_CXVSCROLL);
  RECT window{};
  GetWindowRect(frame, &window);
  SIZE whole{window.right - window.left, window.bottom - window.top};
  bool across = content.cx > whole.cx;
  const bool down = content.cy > whole.cy - (across ? thick : 0);
  across = content.cx > whole.cx - (down ? thick : 0);
  if (across) whole.cy -= thick;
  if (down) whole.cx -= thick;
  position_.x = std::clamp<LONG>(position_.x, 0, std::max<LONG>(0, content.cx - whole.cx));
  position_.y = std::clamp<LONG>(position_.y, 0, std::max<LONG>(0, content.cy - whole.cy));
  ShowScrollBar(frame, SB_HORZ, across ? TRUE : FALSE);
  ShowScrollBar(frame, SB_VERT, down ? TRUE : FALSE);
  if (across) setScrollBar(frame, SB_HORZ, content.cx, whole.cx, position_.x);
  if (down) setScrollBar(frame, SB_VERT, content.cy, whole.cy, position_.y);
}

}  // namespace depcalc::native
