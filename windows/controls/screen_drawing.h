// A whole screen on any device, with no windows.
#pragma once

#include "controls/user_control.h"
#include "windows/controls/ambient.h"

namespace depcalc::native {

/// Draws all that is shown of `root` so that it fills `bounds`, in the logical units of `dc`: a
/// window, a bitmap, a printer or a metafile. Nothing has the focus there. A root that is not
/// shown is drawn all the same, as long as it has a size.
void drawScreen(HDC dc, const RECT& bounds, const UserControl& root, const Ambient& ambient = {});

}  // namespace depcalc::native
