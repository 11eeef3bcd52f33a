// Pictures of what changes a company: an import, and the history of it all.
#pragma once

#include <QStringList>

#include "desktop/window/main_window.h"

namespace depcalc::desktop {

/// Draws them into `directory` and answers the files. The company that is open, beside which files
/// may be written, has an asset; a comparison that shows is saved first, and more is changed.
QStringList drawSteps(MainWindow& window, const QString& directory);

}  // namespace depcalc::desktop
