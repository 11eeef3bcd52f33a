// What went wrong, for the user to read.
#pragma once

#include <QString>

class QWidget;

namespace depcalc::desktop {

void warn(const QString& text, QWidget* window);

}  // namespace depcalc::desktop
