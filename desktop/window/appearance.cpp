#include "desktop/window/appearance.h"

#include <QApplication>
#include <QStyle>

#include "desktop/window/dark_palette.h"

namespace depcalc::desktop {

Appearances::Appearances()
    : first_(QApplication::palette()), given_(QCoreApplication::testAttribute(Qt::AA_SetPalette)) {}

Appearances::~Appearances() { use(Appearance::desktop); }

void Appearances::use(Appearance appearance) {
  if (appearance == used_) return;
  used_ = appearance;
  if (appearance == Appearance::dark) {
    QApplication::setPalette(darkPalette());
  } else if (appearance == Appearance::light) {
    QApplication::setPalette(QApplication::style()->standardPalette());
  } else {
    // An empty one is the desktop's again.
    QApplication::setPalette(given_ ? first_ : QPalette());
  }
}

}  // namespace depcalc::desktop
