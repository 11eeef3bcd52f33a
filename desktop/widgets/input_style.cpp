#include "desktop/widgets/input_style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>

namespace depcalc::desktop {
InputStyle::InputStyle(Surface& surface)
    : QProxyStyle(QStringLiteral("fusion")), surface_(surface) {
  setParent(&surface);
}

InputStyle& InputStyle::of(Surface& surface) {
  auto* const made = surface.findChild<InputStyle*>(QString(), Qt::FindDirectChildrenOnly);
  return made != nullptr ? *made : *new InputStyle(surface);
}

void InputStyle::drawField(QPainter& painter, const QRectF& area, bool focused,
                           const QColor& fill) const {
  const Colours& colours = surface_.colours();
  const double line = (focused ? 2.0 : 1.0) * std::max(1.0, surface_.scale().zoom() / 100.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(focused ? colours.focusRing() : colours.fieldBorder(), line));
  painter.setBrush(fill);
  const double corner = surface_.scale().exact(looks::field_corner);
  painter.drawRoundedRect(area.adjusted(line / 2, line / 2, -line / 2, -line / 2), corner, corner);
}

void InputStyle::drawArrow(QPainter& painter, const QRectF& area) const {
  const double size = surface_.scale().exact(looks::list_arrow);
  const QPointF middle = area.center();
  painter.setPen(QPen(surface_.colours().accent(), std::max(1.0, size / 6), Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const QPointF points[] = {middle + QPointF(-size / 2, -size / 4), middle + QPointF(0, size / 4),
                            middle + QPointF(size / 2, -size / 4)};
  painter.drawPolyline(points, 3);
}

void InputStyle::drawOption(QPainter& painter, const QRectF& area, bool on, bool hovered) const {
  const Colours& colours = surface_.colours();
  const double side = std::min(area.width(), area.height()) - 1;
  QRectF circle(0, 0, side, side);
  circle.moveCenter(area.center());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(on || hovered ? colours.accent() : colours.fieldBorder(), side / 10));
  painter.setBrush(colours.base());
  const double inset = side / 20;
  painter.drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
  if (!on) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.accent());
  painter.drawEllipse(circle.center(), side * 0.24, side * 0.24);
}

void InputStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  painter->save();
  switch (element) {
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
      drawField(*painter, option->rect, option->state.testFlag(State_HasFocus),
                option->palette.color(QPalette::Base));
      break;
    case PE_IndicatorRadioButton:
      drawOption(*painter, option->rect, option->state.testFlag(State_On),
                 option->state.testFlag(State_MouseOver));
      break;
    case PE_FrameFocusRect:
      drawField(*painter, QRectF(option->rect).adjusted(-1, 0, 1, 0), true, Qt::transparent);
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  painter->restore();
}

void InputStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  if (control != CC_ComboBox) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  painter->save();
  drawField(*painter, option->rect, option->state.testFlag(State_HasFocus),
            option->palette.color(QPalette::Base));
  drawArrow(*painter, subControlRect(control, option, SC_ComboBoxArrow, widget));
  painter->restore();
}

int InputStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  if (metric == PM_ExclusiveIndicatorWidth || metric == PM_ExclusiveIndicatorHeight) {
    return surface_.scale().pixels(looks::option_mark);
  }
  return QProxyStyle::pixelMetric(metric, option, widget);
}

Qt::AlignmentFlag qtAlignment(TextAlignment alignment) {
  switch (alignment) {
    case TextAlignment::right:
      return Qt::AlignRight;
    case TextAlignment::center:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

QPalette inputPalette(const Control& control, const Colours& colours) {
  QPalette palette;
  const QColor text = colours.of(control.foreColour());
  const QColor base = colours.of(control.backColour());
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(role, text);
  }
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::Button, base);
  palette.setColor(QPalette::Highlight, colours.accent());
  palette.setColor(QPalette::HighlightedText, colours.paper());
  return palette;
}

}  // namespace depcalc::desktop
