// The calculator's colours on the user's desktop.
#pragma once

#include <QColor>
#include <QPalette>

#include "controls/looks.h"

namespace depcalc::desktop {

/// System colours come from the desktop's palette. The calculator's own are as they are given on
/// a light desktop; on a dark one as `looks::onDark` says.
class Colours {
 public:
  Colours() = default;
  explicit Colours(const QPalette& palette);

  [[nodiscard]] bool dark() const { return dark_; }
  [[nodiscard]] QColor of(Colour colour) const;

  // What the calculator gives no colour for.
  [[nodiscard]] QColor text() const { return of(window_text); }
  [[nodiscard]] QColor base() const { return of(window_background); }
  [[nodiscard]] QColor fieldBorder() const { return of(looks::field_border); }
  [[nodiscard]] QColor focusRing() const { return of(looks::focus_ring); }
  [[nodiscard]] QColor gridLine() const { return of(looks::grid_line); }
  [[nodiscard]] QColor caption() const { return of(looks::caption); }
  [[nodiscard]] QColor heading() const { return of(looks::heading); }
  [[nodiscard]] QColor selection() const { return of(looks::selection); }
  [[nodiscard]] QColor accent() const { return of(looks::accent); }
  [[nodiscard]] QColor paper() const { return of(looks::paper); }

 private:
  QColor text_ = Qt::black;
  QColor base_ = Qt::white;
  bool dark_ = false;
};

}  // namespace depcalc::desktop
