// Pictures of a company's screens and of its printed schedule.
#pragma once

#include <QStringList>

#include "desktop/window/main_window.h"

namespace depcalc::desktop {

/// The page of a window without a company, in the same way.
QStringList renderStartPage(MainWindow& window, const QString& directory);

/// Walks the open company's calculator through its screens and writes a picture of each into
/// `directory`, which is there: the register, the form filled with the first asset, its help, the
/// comparison; and the schedule as PDF and as pictures of its pages. Nothing is saved. Returns
/// the paths written; one that could not be written ends the walk.
QStringList renderPreview(MainWindow& window, const QString& directory);

}  // namespace depcalc::desktop
