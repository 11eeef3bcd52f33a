// How message boxes and dialogs of the program look.
#pragma once

class QMessageBox;
class QWidget;

namespace depcalc::desktop {

/// Room around the text of a box: a short text in a box of its own size looks squeezed. Buttons
/// without pictures, as everywhere in the program.
void tidyBox(QMessageBox& box);

void dropButtonIcons(QWidget& dialog);

}  // namespace depcalc::desktop
