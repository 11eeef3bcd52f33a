// The scroll bars of a window.
#pragma once

#include <windows.h>

namespace depcalc::native {

/// One step of a bar, in pixels.
inline constexpr int scroll_line = 24;

/// Sets `bar` (SB_HORZ, SB_VERT) for `length` pixels of which `room` are to be seen, those from
/// `position` on. Whether it is shown stays as it is.
void setScrollBar(HWND window, int bar, int length, int room, int position);

/// Where the user leads `bar` with `code`, the first parameter of the message that tells it; may
/// lie beyond either end.
[[nodiscard]] int scrolledPosition(HWND window, int bar, WPARAM code);

}  // namespace depcalc::native
