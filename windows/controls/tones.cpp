#include "windows/controls/tones.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace depcalc::native {
namespace {

struct Hsl {
  double hue = 0;  // sixths of the circle
  double saturation = 0;
  double lightness = 0;
};

Hsl hslOf(double red, double green, double blue) {
  const auto [low, high] = std::minmax({red, green, blue});
  const double chroma = high - low;
  Hsl hsl{0, 0, (high + low) / 2};
  if (chroma == 0) return hsl;
  hsl.saturation = chroma / (1 - std::abs(2 * hsl.lightness - 1));
  if (high == red) {
    hsl.hue = std::fmod((green - blue) / chroma + 6, 6);
  } else {
    hsl.hue = high == green ? (blue - red) / chroma + 2 : (red - green) / chroma + 4;
  }
  return hsl;
}

BYTE byteOf(double part) {
  return static_cast<BYTE>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

COLORREF rgbOf(const Hsl& hsl) {
  const double chroma = (1 - std::abs(2 * hsl.lightness - 1)) * hsl.saturation;
  // How far each of red, green and blue lies from the hue decides how much of the chroma it has.
  const auto part = [&](double centre) {
    const double distance = std::abs(std::fmod(hsl.hue - centre + 9, 6) - 3);
    return hsl.lightness - chroma / 2 + chroma * std::clamp(2 - distance, 0.0, 1.0);
  };
  return RGB(byteOf(part(0)), byteOf(part(2)), byteOf(part(4)));
}

double luminance(COLORREF colour) {
  return 0.299 * GetRValue(colour) + 0.587 * GetGValue(colour) + 0.114 * GetBValue(colour);
}

constexpr bool isAccent(Colour colour) {
  return colour.red() == looks::accent.red() && colour.green() == looks::accent.green() &&
         colour.blue() == looks::accent.blue();
}

}  // namespace

bool systemAtHighContrast() {
  HIGHCONTRASTW state{};
  state.cbSize = sizeof state;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof state, &state, 0) != FALSE &&
         (state.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

Tones::Tones(const AmbientColours& ambient, bool high_contrast)
    : text_(GetSysColor(COLOR_WINDOWTEXT)),
      base_(GetSysColor(COLOR_WINDOW)),
      high_contrast_(high_contrast) {
  if (!high_contrast_ && ambient.text.has_value() && ambient.base.has_value()) {
    text_ = *ambient.text;
    base_ = *ambient.base;
  }
  dark_ = luminance(base_) < luminance(text_);
}

COLORREF Tones::own(Colour colour) const {
  if (!dark_) return RGB(colour.red(), colour.green(), colour.blue());
  Hsl hsl = hslOf(colour.red() / 255.0, colour.green() / 255.0, colour.blue() / 255.0);
  const looks::Tone tone = looks::onDark({hsl.saturation, hsl.lightness});
  return rgbOf({hsl.hue, tone.saturation, tone.lightness});
}

COLORREF Tones::ink(Colour colour) const {
  if (colour.isSystem() || high_contrast_) return colour == window_background ? base_ : text_;
  return own(colour);
}

COLORREF Tones::ground(Colour colour) const {
  if (high_contrast_) {
    return isAccent(colour) || colour == looks::selection ? GetSysColor(COLOR_HIGHLIGHT) : base_;
  }
  if (colour == window_text) return text_;
  return colour.isSystem() ? base_ : own(colour);
}

COLORREF Tones::inkOn(Colour ground, Colour ink) const {
  if (!high_contrast_) return this->ink(ink);
  return this->ground(ground) == base_ ? text_ : GetSysColor(COLOR_HIGHLIGHTTEXT);
}

COLORREF Tones::link(Colour colour) const {
  return high_contrast_ ? GetSysColor(COLOR_HOTLIGHT) : ink(colour);
}

COLORREF blended(COLORREF from, COLORREF to, double part) {
  const auto mixed = [part](int a, int b) {
    return static_cast<BYTE>(std::lround(a + (b - a) * part));
  };
  return RGB(mixed(GetRValue(from), GetRValue(to)), mixed(GetGValue(from), GetGValue(to)),
             mixed(GetBValue(from), GetBValue(to)));
}

}  // namespace depcalc::native
