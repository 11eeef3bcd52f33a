// Fonts for painters whose unit is the twip.
#pragma once

#include <QFont>
#include <cmath>

namespace depcalc::desktop {

inline constexpr double twips_per_point = 20;
inline constexpr double least_spacing = 1.0 / 64;  ///< twips

/// `family` at `points`. The pixel of the font is the painter's twip.
inline QFont twipFont(const QFont& family, double points, bool bold = false) {
  QFont font = family;
  font.setPixelSize(static_cast<int>(std::lround(points * twips_per_point)));
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  // Any letter spacing keeps Qt from ligatures, which nobody finds who searches a document.
  font.setLetterSpacing(QFont::AbsoluteSpacing, least_spacing);
  return font;
}

}  // namespace depcalc::desktop
