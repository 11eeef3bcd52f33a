// How a picture that acts as a button is drawn.
#pragma once

#include <QPainter>
#include <QString>
#include <span>
#include <string_view>

#include "controls/button_pictures.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/scale.h"

namespace depcalc::desktop {

struct ButtonView {
  std::string_view picture;  ///< "calc", "save-pressed", "close"
  QString caption;           ///< not drawn where the picture says everything
  int underlined = -1;       ///< the letter of the caption that clicks the button with Alt
  bool primary = false;
  bool hovered = false;
};

void drawButton(QPainter& painter, const QRectF& area, const ButtonView& button,
                const Colours& colours, const Scale& scale);

/// The strokes of a square picture, scaled to `area`.
void drawStrokes(QPainter& painter, const QRectF& area, std::span<const Stroke> strokes,
                 const QColor& colour);

}  // namespace depcalc::desktop
