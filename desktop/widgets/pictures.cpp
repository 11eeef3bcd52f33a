#include "desktop/widgets/pictures.h"

#include <QPainterPath>
#include <array>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

const QString pressed_suffix = QStringLiteral("-pressed");

// Twips.
constexpr double corner_twips = 60;
constexpr double icon_twips = 195;
constexpr double gap_twips = 90;
constexpr double caption_points = 9;

using Draw = void (*)(QPainterPath&);

// Each drawing is a set of strokes in a square of side 16.
void drawCalculator(QPainterPath& path) {
  path.addRoundedRect(QRectF(2.5, 1, 11, 14), 1.5, 1.5);
  path.addRect(QRectF(5, 3.5, 6, 2.5));
  for (const double y : {9.0, 12.0}) {
    for (const double x : {5.2, 8.0, 10.8}) path.addEllipse(QPointF(x, y), 0.4, 0.4);
  }
}

void drawPlus(QPainterPath& path) {
  path.moveTo(8, 2.5);
  path.lineTo(8, 13.5);
  path.moveTo(2.5, 8);
  path.lineTo(13.5, 8);
}

void drawTick(QPainterPath& path) {
  path.moveTo(2.5, 8.5);
  path.lineTo(6.5, 12.5);
  path.lineTo(13.5, 3.5);
}

void drawPencil(QPainterPath& path) {
  path.moveTo(2, 14);
  path.lineTo(3, 10.2);
  path.lineTo(10.8, 2.4);
  path.lineTo(13.6, 5.2);
  path.lineTo(5.8, 13);
  path.closeSubpath();
  path.moveTo(8.8, 4.4);
  path.lineTo(11.6, 7.2);
}

void drawBin(QPainterPath& path) {
  path.moveTo(2.5, 4);
  path.lineTo(13.5, 4);
  path.moveTo(6, 4);
  path.lineTo(6, 1.8);
  path.lineTo(10, 1.8);
  path.lineTo(10, 4);
  path.moveTo(4, 4);
  path.lineTo(4.8, 14.4);
  path.lineTo(11.2, 14.4);
  path.lineTo(12, 4);
  path.moveTo(6.8, 7);
  path.lineTo(7, 11.5);
  path.moveTo(9.2, 7);
  path.lineTo(9, 11.5);
}

void drawPrinter(QPainterPath& path) {
  path.addRect(QRectF(4, 1.5, 8, 4));
  path.addRoundedRect(QRectF(1.5, 5.5, 13, 6), 1, 1);
  path.addRect(QRectF(4, 9.5, 8, 5));
}

void drawCross(QPainterPath& path) {
  path.moveTo(3, 3);
  path.lineTo(13, 13);
  path.moveTo(13, 3);
  path.lineTo(3, 13);
}

struct Picture {
  const char* name;
  Draw draw;
  bool bare;  ///< no caption, no frame
};

constexpr std::array all_pictures = {
    Picture{"calc", drawCalculator, false}, Picture{"new", drawPlus, false},
    Picture{"clear", drawPlus, false},      Picture{"save", drawTick, false},
    Picture{"edit", drawPencil, false},     Picture{"delete", drawBin, false},
    Picture{"print", drawPrinter, false},   Picture{"close", drawCross, true},
};

QString baseName(const QString& name) {
  return name.endsWith(pressed_suffix) ? name.chopped(pressed_suffix.size()) : name;
}

const Picture* find(const QString& name) {
  const QString base = baseName(name);
  for (const Picture& picture : all_pictures) {
    if (base == QLatin1String(picture.name)) return &picture;
  }
  return nullptr;
}

void strokeIcon(QPainter& painter, const QRectF& area, Draw draw, const QColor& colour) {
  QPainterPath path;
  draw(path);
  painter.save();
  painter.translate(area.topLeft());
  painter.scale(area.width() / 16, area.height() / 16);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
  painter.restore();
}

struct Look {
  QColor fill;
  QColor ink;
};

Look lookOf(const ButtonPicture& button, bool pressed, const Colours& colours) {
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

bool hasPicture(const QString& name) { return find(name) != nullptr; }

void drawButton(QPainter& painter, const QRectF& area, const ButtonPicture& button,
                const Colours& colours, const Scale& scale) {
  painter.setRenderHint(QPainter::Antialiasing);
  const Picture* const picture = find(button.picture);
  const bool pressed = button.picture.endsWith(pressed_suffix);
  const Look look = lookOf(button, pressed, colours);
  if (picture != nullptr && picture->bare) {
    if (button.hovered) painter.fillRect(area, colours.selection());
    const double inset = area.width() / 6;
    strokeIcon(painter, area.adjusted(inset, inset, -inset, -inset), picture->draw,
               colours.accent());
    return;
  }
  const double line = std::max(1.0, scale.exact(15));
  painter.setPen(QPen(colours.accent(), line));
  painter.setBrush(look.fill);
  const double corner = scale.exact(corner_twips);
  painter.drawRoundedRect(area.adjusted(line / 2, line / 2, -line / 2, -line / 2), corner, corner);

  const TextBlock caption(button.caption, {caption_points, true}, scale, 0);
  const double icon = picture == nullptr ? 0 : scale.exact(icon_twips);
  const double gap = picture == nullptr ? 0 : scale.exact(gap_twips);
  const double shift = pressed ? line : 0;
  const double left = area.left() + (area.width() - icon - gap - caption.width()) / 2 + shift;
  if (picture != nullptr) {
    const double top = area.top() + (area.height() - icon) / 2 + shift;
    strokeIcon(painter, {left, top, icon, icon}, picture->draw, look.ink);
  }
  painter.setPen(look.ink);
  const double top = std::round(area.top() + (area.height() - caption.height()) / 2 + shift);
  caption.draw(painter, {left + icon + gap, top, caption.width(), caption.height()},
               TextAlignment::left, button.underlined);
}

}  // namespace depcalc::desktop
