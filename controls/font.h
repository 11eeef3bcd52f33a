// How texts look.
#pragma once

namespace depcalc {

/// The family is the one of whoever shows the control.
struct Font {
  double size = 8;  ///< points
  bool bold = false;
  bool underline = false;

  friend bool operator==(const Font&, const Font&) = default;
};

enum class TextAlignment { left, right, center };

}  // namespace depcalc
