#include "desktop/widgets/colours.h"

#include <algorithm>
#include <cmath>

namespace depcalc::desktop {
namespace {

// Lightness of what is white and of what is black on a light desktop.
constexpr double darkest = 0.11;
constexpr double lightest = 0.92;

constexpr double strongest_hue = 0.75;

/// Surfaces are pulled towards the dark end, so that texts stand out from all of them.
double inverted(double lightness) {
  const double dark = 1 - lightness;
  return dark < 0.5 ? 0.5 * std::pow(dark / 0.5, 1.6) : dark;
}

}  // namespace

Colours::Colours(const QPalette& palette)
    : text_(palette.color(QPalette::Active, QPalette::Text)),
      base_(palette.color(QPalette::Active, QPalette::Base)),
      dark_(base_.lightnessF() < text_.lightnessF()) {}

QColor Colours::of(Colour colour) const {
  if (colour == window_text) return text_;
  if (colour.isSystem()) return base_;
  return own(colour.red(), colour.green(), colour.blue());
}

QColor Colours::own(int red, int green, int blue) const {
  const QColor given(red, green, blue);
  if (!dark_) return given;
  const double lightness = darkest + inverted(given.lightnessF()) * (lightest - darkest);
  const double saturation = std::min<double>(given.hslSaturationF(), strongest_hue);
  // Dark surfaces of a strong hue look lurid: the darker, the greyer.
  const double muted = saturation * (lightness < 0.5 ? 0.4 : 1.0);
  return QColor::fromHslF(std::max(0.0F, given.hslHueF()), static_cast<float>(muted),
                          static_cast<float>(lightness));
}

}  // namespace depcalc::desktop
