// Fonts for painters whose unit is the twip.
#pragma once

#include <QFont>
#include <cmath>

namespace depcalc::desktop {

inline constexpr double twips_per_point = 20;

/// `family` at `points`. The pixel of the font is the painter's twip.
inline QFont twipFont(const QFont& family, double points, bool bold = false) {
  QFont font = family;
  font.setPixelSize(static_cast<int>(std::lround(points * twips_per_point)));
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace depcalc::desktop
