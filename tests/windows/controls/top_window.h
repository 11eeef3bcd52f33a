// A window of the desktop's for a test to put controls in.
#pragma once

#include <windows.h>

namespace depcalc::testing {

class TopWindow {
 public:
  explicit TopWindow(int width = 1500, int height = 1100)
      : handle_(CreateWindowExW(0, L"STATIC", L"Host", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0,
                                0, width, height, nullptr, nullptr, nullptr, nullptr)) {
    SetForegroundWindow(handle_);
    SetActiveWindow(handle_);
  }
  ~TopWindow() { DestroyWindow(handle_); }
  TopWindow(const TopWindow&) = delete;
  TopWindow& operator=(const TopWindow&) = delete;

  [[nodiscard]] HWND handle() const { return handle_; }
  [[nodiscard]] RECT client() const {
    RECT area{};
    GetClientRect(handle_, &area);
    return area;
  }

 private:
  HWND handle_;
};

}  // namespace depcalc::testing
