#include "desktop/window/help_closer.h"

#include "help/dep_calc_popup.h"

namespace depcalc::desktop {

HelpCloser::HelpCloser(DepCalcCont& container, Surface& surface)
    : container_(container), surface_(surface) {
  QObject::connect(&surface, &Surface::acted, &listener_, [this] { look(); });
}

/// While an asset is being deleted no screen is shown; what comes then may be the same one.
void HelpCloser::look() {
  const UserControl* const now = container_.visibleScreen();
  if (now == nullptr || now == screen_) return;
  const bool another = std::exchange(screen_, now) != nullptr;
  if (another) close();
}

void HelpCloser::close() {
  for (Control* child : container_.children()) {
    auto* const popup = dynamic_cast<DepCalcPopup*>(child);
    if (popup == nullptr || !popup->isShown()) continue;
    surface_.act([popup](User& user) { user.click(popup->CloseButton); });
  }
}

}  // namespace depcalc::desktop
