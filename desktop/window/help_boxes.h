// What the Help menu shows in boxes.
#pragma once

class QWidget;

namespace depcalc::desktop {

void showAbout(QWidget* window);

/// A topic that a link of the calculator's main help leads to, where no calculator can show it; -1
/// is the help itself.
void showTopicInBox(int link, QWidget* window);

}  // namespace depcalc::desktop
