// The host's palette on a display of few colours.
#pragma once

#include "controls/control.h"
#include "windows/controls/gdi_handles.h"

namespace depcalc::native {

/// The palette that the page which `control` is, or stands on, has in use; none: null.
[[nodiscard]] const Palette* paletteInUse(const Control& control);

/// As far as a display can hold it: 256 colours.
[[nodiscard]] GdiHandle<HPALETTE> paletteOf(const Palette& palette);

/// While it lives, the display shows the palette that is in use. On a display that has every colour
/// it does nothing.
class RealizedPalette {
 public:
  /// `buffer` is drawn on first, and then copied to `window`.
  RealizedPalette(HDC window, HDC buffer, const Control& control);
  ~RealizedPalette();
  RealizedPalette(const RealizedPalette&) = delete;
  RealizedPalette& operator=(const RealizedPalette&) = delete;

 private:
  HDC window_;
  HDC buffer_;
  GdiHandle<HPALETTE> palette_;
};

/// The bits that have the device take the nearest colour of its palette; none where it has every
/// colour.
[[nodiscard]] COLORREF nearestFlag(HDC dc);

}  // namespace depcalc::native
