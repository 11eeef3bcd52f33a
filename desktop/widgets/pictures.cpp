#include "desktop/widgets/pictures.h"

#include <QPainterPath>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

QPainterPath pathOf(std::span<const Stroke> strokes) {
  QPainterPath path;
  for (const Stroke& at : strokes) {
    switch (at.kind) {
      case Stroke::Kind::move:
        path.moveTo(at.x, at.y);
        break;
      case Stroke::Kind::line:
        path.lineTo(at.x, at.y);
        break;
      case Stroke::Kind::close:
        path.closeSubpath();
        break;
      case Stroke::Kind::rectangle:
        path.addRect(QRectF(at.x, at.y, at.width, at.height));
        break;
      case Stroke::Kind::roundedRectangle:
        path.addRoundedRect(QRectF(at.x, at.y, at.width, at.height), at.radius, at.radius);
        break;
      case Stroke::Kind::dot:
        path.addEllipse(QPointF(at.x, at.y), at.radius, at.radius);
        break;
    }
  }
  return path;
}

struct Look {
  QColor fill;
  QColor ink;
};

Look lookOf(const ButtonView& button, bool pressed, const Colours& colours) {
  Look look = button.primary ? Look{colours.accent(), colours.paper()}
                             : Look{colours.paper(), colours.accent()};
  if (pressed) {
    look.fill = button.primary ? look.fill.lighter(150) : colours.heading();
  } else if (button.hovered) {
    look.fill = button.primary ? look.fill.lighter(125) : colours.selection();
  }
  return look;
}

}  // namespace

void drawStrokes(QPainter& painter, const QRectF& area, std::span<const Stroke> strokes,
                 const QColor& colour) {
  painter.save();
  painter.translate(area.topLeft());
  painter.scale(area.width() / picture_side, area.height() / picture_side);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, picture_pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(pathOf(strokes));
  painter.restore();
}

void drawButton(QPainter& painter, const QRectF& area, const ButtonView& button,
                const Colours& colours, const Scale& scale) {
  painter.setRenderHint(QPainter::Antialiasing);
  const ButtonPicture* const picture = buttonPicture(button.picture);
  const bool pressed = isPressedPicture(button.picture);
  const Look look = lookOf(button, pressed, colours);
  if (picture != nullptr && picture->bare) {
    if (button.hovered) painter.fillRect(area, colours.selection());
    const double inset = area.width() / 6;
    drawStrokes(painter, area.adjusted(inset, inset, -inset, -inset), picture->strokes,
                colours.accent());
    return;
  }
  const double line = std::max(1.0, scale.exact(button_looks::line));
  painter.setPen(QPen(colours.accent(), line));
  painter.setBrush(look.fill);
  const double corner = scale.exact(button_looks::corner);
  painter.drawRoundedRect(area.adjusted(line / 2, line / 2, -line / 2, -line / 2), corner, corner);

  const TextBlock caption(button.caption, {button_looks::caption_points, true}, scale, 0);
  const double icon = picture == nullptr ? 0 : scale.exact(button_looks::icon);
  const double gap = picture == nullptr ? 0 : scale.exact(button_looks::gap);
  const double shift = pressed ? line : 0;
  const double left = area.left() + (area.width() - icon - gap - caption.width()) / 2 + shift;
  if (picture != nullptr) {
    const double top = area.top() + (area.height() - icon) / 2 + shift;
    drawStrokes(painter, {left, top, icon, icon}, picture->strokes, look.ink);
  }
  painter.setPen(look.ink);
  const double top = std::round(area.top() + (area.height() - caption.height()) / 2 + shift);
  caption.draw(painter, {left + icon + gap, top, caption.width(), caption.height()},
               TextAlignment::left, button.underlined);
}

}  // namespace depcalc::desktop
