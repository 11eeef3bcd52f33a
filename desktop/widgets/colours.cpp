#include "desktop/widgets/colours.h"

#include <algorithm>

namespace depcalc::desktop {

Colours::Colours(const QPalette& palette)
    : text_(palette.color(QPalette::Active, QPalette::Text)),
      base_(palette.color(QPalette::Active, QPalette::Base)),
      dark_(base_.lightnessF() < text_.lightnessF()) {}

QColor Colours::of(Colour colour) const {
  if (colour == window_text) return text_;
  if (colour.isSystem()) return base_;
  const QColor given(colour.red(), colour.green(), colour.blue());
  if (!dark_) return given;
  const looks::Tone tone = looks::onDark({given.hslSaturationF(), given.lightnessF()});
  return QColor::fromHslF(std::max(0.0F, given.hslHueF()), static_cast<float>(tone.saturation),
                          static_cast<float>(tone.lightness));
}

}  // namespace depcalc::desktop
