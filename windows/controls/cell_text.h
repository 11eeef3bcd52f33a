// A text in a cell of a grid, on the screen and on paper.
#pragma once

#include <span>

#include "controls/grid_picture.h"
#include "windows/controls/canvas.h"

namespace depcalc::native {

/// In the first of the sizes (points) in which it fits into `room`, between words, then in words
/// broken; at last from its beginning and cut off at the edges of `room`.
void drawCellText(const Canvas& canvas, const RECT& room, std::string_view text,
                  CellAlignment alignment, CellKind kind, std::span<const double> sizes,
                  COLORREF colour);

}  // namespace depcalc::native
