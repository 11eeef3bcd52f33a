#include "windows/controls/scroll_bars.h"

#include <algorithm>

namespace depcalc::native {

void setScrollBar(HWND window, int bar, int length, int room, int position) {
  const SCROLLINFO info{sizeof info,
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        length - 1,
                        static_cast<UINT>(room),
                        position,
                        0};
  SetScrollInfo(window, bar, &info, TRUE);
}

int scrolledPosition(HWND window, int bar, WPARAM code) {
  SCROLLINFO now{};
  now.cbSize = sizeof now;
  now.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &now);
  const int page = std::max(scroll_line, static_cast<int>(now.nPage) - scroll_line);
  switch (LOWORD(code)) {
    case SB_LINEUP:
      return now.nPos - scroll_line;
    case SB_LINEDOWN:
      return now.nPos + scroll_line;
    case SB_PAGEUP:
      return now.nPos - page;
    case SB_PAGEDOWN:
      return now.nPos + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return now.nTrackPos;
    case SB_TOP:
      return now.nMin;
    case SB_BOTTOM:
      return now.nMax;
    default:
      return now.nPos;
  }
}

}  // namespace depcalc::native
