// The calculator's colours on the user's desktop.
#pragma once

#include <QColor>
#include <QPalette>

#include "controls/colour.h"

namespace depcalc::desktop {

/// System colours come from the desktop's palette. The calculator's own are as they are given on
/// a light desktop; on a dark one each keeps its hue and changes light for dark, so that what was
/// readable stays so.
class Colours {
 public:
  Colours() = default;
  explicit Colours(const QPalette& palette);

  [[nodiscard]] bool dark() const { return dark_; }
  [[nodiscard]] QColor of(Colour colour) const;

  // What the calculator gives no colour for.
  [[nodiscard]] QColor text() const { return of(window_text); }
  [[nodiscard]] QColor base() const { return of(window_background); }
  [[nodiscard]] QColor fieldBorder() const { return own(200, 172, 140); }
  [[nodiscard]] QColor focusRing() const { return own(178, 84, 16); }
  [[nodiscard]] QColor gridLine() const { return own(196, 196, 196); }
  [[nodiscard]] QColor caption() const { return own(239, 239, 239); }
  [[nodiscard]] QColor heading() const { return own(225, 197, 168); }
  [[nodiscard]] QColor selection() const { return own(255, 238, 212); }
  [[nodiscard]] QColor accent() const { return own(102, 0, 0); }
  [[nodiscard]] QColor paper() const { return own(255, 247, 232); }

 private:
  [[nodiscard]] QColor own(int red, int green, int blue) const;

  QColor text_ = Qt::black;
  QColor base_ = Qt::white;
  bool dark_ = false;
};

}  // namespace depcalc::desktop
