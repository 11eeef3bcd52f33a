// The pictures of the calculator's buttons, drawn as vectors.
#pragma once

#include <QPainter>
#include <QString>

#include "desktop/widgets/colours.h"
#include "desktop/widgets/scale.h"

namespace depcalc::desktop {

struct ButtonPicture {
  QString picture;      ///< "calc", "save-pressed", "close"
  QString caption;      ///< not drawn where the picture says everything
  int underlined = -1;  ///< the letter of the caption that clicks the button with Alt
  bool primary = false;
  bool hovered = false;
};

void drawButton(QPainter& painter, const QRectF& area, const ButtonPicture& button,
                const Colours& colours, const Scale& scale);

/// Whether there is a picture of that name, pressed ones included.
[[nodiscard]] bool hasPicture(const QString& name);

}  // namespace depcalc::desktop
