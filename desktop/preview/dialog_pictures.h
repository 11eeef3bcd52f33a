// Pictures of what stands around the calculator: dialogs and the guide.
#pragma once

#include <QStringList>

#include "desktop/window/main_window.h"

namespace depcalc::desktop {

/// Draws the dialogs and the guide into `directory` and answers the files. The company that is open
/// has assets and nothing unsaved, and stays as it is.
QStringList drawDialogs(MainWindow& window, const QString& directory);

}  // namespace depcalc::desktop
