// How text boxes, lists and options are drawn.
#pragma once

#include <QProxyStyle>

#include "controls/font.h"
#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// Flat fields with a thin border and, for the one that has the focus, a clear ring.
class InputStyle : public QProxyStyle {
  Q_OBJECT

 public:
  /// The style of a surface's widgets; lives as long as the surface.
  static InputStyle& of(Surface& surface);

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;

 private:
  explicit InputStyle(Surface& surface);

  void drawField(QPainter& painter, const QRectF& area, bool focused, const QColor& fill) const;
  void drawArrow(QPainter& painter, const QRectF& area) const;
  void drawOption(QPainter& painter, const QRectF& area, bool on, bool hovered) const;

  Surface& surface_;
};

[[nodiscard]] Qt::AlignmentFlag qtAlignment(TextAlignment alignment);
[[nodiscard]] QPalette inputPalette(const Control& control, const Colours& colours);

}  // namespace depcalc::desktop
