#include "windows/controls/monitor_dpi.h"

namespace depcalc::native {

int dpiOf(HWND window) {
  using GetDpi = UINT(WINAPI*)(HWND);
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const auto get =
      reinterpret_cast<GetDpi>(reinterpret_cast<void*>(GetProcAddress(user, "GetDpiForWindow")));
  if (get != nullptr && get(window) != 0) return static_cast<int>(get(window));
  const HDC screen = GetDC(window);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(window, screen);
  return dpi;
}

}  // namespace depcalc::native
