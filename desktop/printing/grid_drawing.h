// How a grid's picture looks on paper.
#pragma once

#include <QFont>
#include <QPainter>

#include "controls/grid_picture.h"

namespace depcalc::desktop {

/// Draws `picture` at its natural size with its top left corner at (`x`, `y`); the painter's unit
/// is the twip. Bold cells are captions on grey. A text too long for its cell is broken into
/// lines, then drawn smaller, and at last cut off at the cell's edges.
void drawGrid(QPainter& painter, const GridPicture& picture, int x, int y, const QFont& family);

}  // namespace depcalc::desktop
