// The resolution of the monitor that a window is on.
#pragma once

#include <windows.h>

namespace depcalc::native {

/// WM_DPICHANGED_AFTERPARENT: it is another one now.
inline constexpr UINT dpi_changed_message = 0x02E3;

/// Where the system does not tell, that of the screen.
[[nodiscard]] int dpiOf(HWND window);

}  // namespace depcalc::native
