// The file that something is to be written to.
#pragma once

#include <QString>

#include "desktop/window/file_dialogs.h"

class QWidget;

namespace depcalc::desktop {

/// Asks whether the file that is there may be replaced.
[[nodiscard]] bool mayReplace(const QString& path, QWidget* window);

/// Asks until the user names a file in a folder that is there and agrees to replace one that is
/// taken, or thinks better of it: "". The name ends in `suffix`, and that is the name which the
/// user is asked about. `never` is a file that none may replace; "" for none.
[[nodiscard]] QString askFileToWrite(QWidget* window, FileQuestion question, const QString& suffix,
                                     const QString& never = {});

}  // namespace depcalc::desktop
