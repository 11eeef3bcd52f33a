// A picture of a dialog, which waits for its user.
#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>

namespace depcalc::desktop {

/// Deals with what the window still has to do.
void settle();

/// Runs `open`, which opens a dialog and waits for its end; draws the dialog into the file `path`
/// and has `answer` end it, by default as Cancel does. Answers the file, or nothing where no dialog
/// came.
QStringList drawModal(
    const QString& path, const std::function<void()>& open,
    const std::function<void(QDialog&)>& answer = [](QDialog& dialog) { dialog.reject(); });

}  // namespace depcalc::desktop
