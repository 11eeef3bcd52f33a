// How far what stands in a frame has been scrolled.
#pragma once

#include <windows.h>

namespace depcalc::native {

/// Whoever moves it lays out what stands in the frame anew, and `fit` then keeps it inside.
class FrameScrolling {
 public:
  /// What lies at the frame's top left, in pixels of the content.
  [[nodiscard]] POINT position() const { return position_; }

  void toTopLeft() { position_ = {}; }
  /// A WM_HSCROLL or WM_VSCROLL with `code`.
  void useBar(HWND frame, UINT message, WPARAM code);
  /// A WM_MOUSEWHEEL with `wide`.
  void turnWheel(WPARAM wide);
  /// Moves just so far that `area` of the frame is to be seen. Returns whether it had to.
  bool reveal(HWND frame, const RECT& area);

  /// Shows the bars that a content of that size needs.
  void fit(HWND frame, const SIZE& content);

 private:
  POINT position_{};
};

}  // namespace depcalc::native
