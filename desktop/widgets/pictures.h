// How a picture that acts as a button is drawn.
#pragma once

#include <QPainter>
#include <QString>
#include <string_view>

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

}  // namespace depcalc::desktop
