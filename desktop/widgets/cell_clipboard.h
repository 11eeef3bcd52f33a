// Cells on the clipboard.
#pragma once

#include "controls/copied_cells.h"

namespace depcalc::desktop {

/// Both forms at once, so that who pastes takes the one it prefers.
void copyCells(const CopiedCells& cells);

}  // namespace depcalc::desktop
