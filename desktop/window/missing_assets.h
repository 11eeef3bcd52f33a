// What a printed schedule would lack.
#pragma once

#include <QString>

#include "controls/grid.h"
#include "controls/printer.h"

class QWidget;

namespace depcalc::desktop {

/// Says how many assets of a register would be on no page of this printer's, and which paper may
/// have room for them; "" where every asset is on a page. To be asked before the job begins.
[[nodiscard]] QString missingAssetsNote(const Grid& register_table, Printer& printer);

/// Whether the user wants to print all the same. Nothing to note: yes, unasked. `otherwise` says
/// what the other button does.
[[nodiscard]] bool printsAllTheSame(const QString& note, const QString& otherwise, QWidget* window);

}  // namespace depcalc::desktop
