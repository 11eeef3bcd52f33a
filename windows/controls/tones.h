// The calculator's colours on the user's Windows.
#pragma once

#include <windows.h>

#include <optional>

#include "controls/looks.h"

namespace depcalc::native {

/// What the host gives for its page; the system's where it gives nothing.
struct AmbientColours {
  std::optional<COLORREF> text;
  std::optional<COLORREF> base;
};

/// Whether the user asked the system for high contrast.
[[nodiscard]] bool systemAtHighContrast();

/// System colours come from the system. The calculator's own are as they are given on a light
/// desktop, on a dark one as `looks::onDark` says; at high contrast only the system's are used.
class Tones {
 public:
  explicit Tones(const AmbientColours& ambient = {}, bool high_contrast = systemAtHighContrast());

  [[nodiscard]] bool dark() const { return dark_; }
  [[nodiscard]] bool highContrast() const { return high_contrast_; }

  /// What is written and drawn with, and what that stands on.
  [[nodiscard]] COLORREF ink(Colour colour) const;
  [[nodiscard]] COLORREF ground(Colour colour) const;
  /// What is written on `ground(colour)`, where that is a surface of the calculator's own.
  [[nodiscard]] COLORREF inkOn(Colour ground, Colour ink) const;
  [[nodiscard]] COLORREF link(Colour colour) const;

  [[nodiscard]] COLORREF text() const { return text_; }
  [[nodiscard]] COLORREF base() const { return base_; }

 private:
  [[nodiscard]] COLORREF own(Colour colour) const;

  COLORREF text_;
  COLORREF base_;
  bool high_contrast_ = false;
  bool dark_ = false;
};

/// `part` of the way from `from` to `to`.
[[nodiscard]] COLORREF blended(COLORREF from, COLORREF to, double part);

}  // namespace depcalc::native
