// How a grid's picture looks on paper.
#pragma once

#include "controls/grid_picture.h"
#include "windows/controls/canvas.h"

namespace depcalc::native {

/// Draws `picture` at its natural size with its top left corner at (`x`, `y`), in twips. Captions
/// stand on grey. A text too long for its cell is broken into lines, then drawn smaller, and at
/// last cut off at the cell's edges.
void drawPrintedGrid(const Canvas& canvas, const GridPicture& picture, int x, int y);

}  // namespace depcalc::native
