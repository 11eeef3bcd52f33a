#include "desktop/widgets/focus_ring.h"

#include <QPainter>
#include <algorithm>

namespace depcalc::desktop {
FocusRing::FocusRing(QWidget& around, const QRect& part, const Surface& surface)
    : QWidget(around.parentWidget()), surface_(surface) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAccessibleName(around.accessibleName());
  const int gap = surface.scale().pixels(looks::ring_gap);
  setGeometry(part.translated(around.pos()).adjusted(-gap, -gap, gap, gap));
  show();
  raise();
}

void FocusRing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double line = 2 * std::max(1.0, surface_.scale().zoom() / 100.0);
  painter.setPen(QPen(surface_.colours().focusRing(), line));
  const double corner = surface_.scale().exact(looks::ring_corner);
  const double inset = line / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), corner, corner);
}

}  // namespace depcalc::desktop
