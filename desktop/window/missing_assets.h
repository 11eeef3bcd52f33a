// What a printed schedule would lack.
#pragma once

#include <QString>
#include <cstddef>

#include "controls/grid.h"
#include "controls/printer.h"

class QWidget;

namespace depcalc::desktop {

/// Says how many assets of a register would be on no page of this printer's, and which paper may
/// have room for them; "" where every asset is on a page. To be asked before the job begins.
[[nodiscard]] QString missingAssetsNote(const Grid& register_table, Printer& printer);

/// How many they are.
[[nodiscard]] std::size_t assetsMissing(const Grid& register_table, Printer& printer);

enum class AboutMissing {
  print,
  back,
  report,  ///< the report that prints all of them instead
};

/// What the user wants to do about it. Nothing to note: print, unasked. `otherwise` says what the
/// button back does.
[[nodiscard]] AboutMissing askAboutMissing(const QString& note, const QString& otherwise,
                                           QWidget* window);

}  // namespace depcalc::desktop
