// Colours that readers tell apart, colour-blind ones among them, and see on their ground.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "reports/pages/paper_tones.h"

namespace depcalc {
namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

double linear(std::uint8_t part) {
  const double value = part / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

Vector linear(PaperColour colour) {
  return {linear(colour.red), linear(colour.green), linear(colour.blue)};
}

Vector times(const Matrix& matrix, const Vector& vector) {
  Vector product{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 3; ++k) product[i] += matrix[i][k] * vector[k];
    product[i] = std::min(1.0, std::max(0.0, product[i]));
  }
  return product;
}

/// G. M. Machado, M. M. Oliveira, L. A. F. Fernandes, "A Physiologically-based Model for Simulation
/// of Color Vision Deficiency", 2009, at full severity.
struct Eyes {
  const char* name;
  Matrix sees;
};
constexpr Eyes all_eyes[] = {
    {"usual", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanopia",
     {{{0.152286, 1.052583, -0.204868},
       {0.114503, 0.786281, 0.099216},
       {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranopia",
     {{{0.367322, 0.860646, -0.227968},
       {0.280085, 0.672501, 0.047413},
       {-0.011820, 0.042940, 0.968881}}}},
    {"tritanopia",
     {{{1.255528, -0.076749, -0.178779},
       {-0.078411, 0.930809, 0.147602},
       {0.004733, 0.691367, 0.303900}}}},
};

Vector labOf(const Vector& rgb) {
  constexpr Matrix xyz{{{0.4124564, 0.3575761, 0.1804375},
                        {0.2126729, 0.7151522, 0.0721750},
                        {0.0193339, 0.1191920, 0.9503041}}};
  constexpr Vector white{0.95047, 1, 1.08883};
  Vector f{};
  for (std::size_t i = 0; i < 3; ++i) {
    double value = 0;
    for (std::size_t k = 0; k < 3; ++k) value += xyz[i][k] * rgb[k];
    value /= white[i];
    f[i] = value > 0.008856 ? std::cbrt(value) : 7.787 * value + 16.0 / 116;
  }
  return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

double distance(const Vector& a, const Vector& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

double luminance(PaperColour colour) {
  const Vector rgb = linear(colour);
  return 0.2126 * rgb[0] + 0.7152 * rgb[1] + 0.0722 * rgb[2];
}

/// As the Web Content Accessibility Guidelines reckon it.
double contrast(PaperColour a, PaperColour b) {
  const double light = std::max(luminance(a), luminance(b));
  const double dark = std::min(luminance(a), luminance(b));
  return (light + 0.05) / (dark + 0.05);
}

constexpr std::array lines{PaperTone::first_line, PaperTone::second_line, PaperTone::third_line,
                           PaperTone::fourth_line};

TEST(ChartTones, DifferToEveryEye) {
  for (const bool dark : {false, true}) {
    for (const Eyes& eyes : all_eyes) {
      for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
          const auto seen = [&](PaperTone tone) {
            return labOf(times(eyes.sees, linear(dark ? onDark(tone) : onWhite(tone))));
          };
          EXPECT_GT(distance(seen(lines[i]), seen(lines[k])), 20)
              << eyes.name << (dark ? " on dark, " : " on white, ") << i << " and " << k;
        }
      }
    }
  }
}

TEST(ChartTones, StandOutFromTheirGround) {
  for (const PaperTone tone : lines) {
    EXPECT_GE(contrast(onWhite(tone), white_paper), 3) << static_cast<int>(tone);
    EXPECT_GE(contrast(onDark(tone), dark_paper), 3) << static_cast<int>(tone);
  }
  for (int i = 0; i <= static_cast<int>(last_paper_font); ++i) {
    const auto font = static_cast<PaperFont>(i);
    EXPECT_GE(contrast(onWhite(font), white_paper), 4.5);
    EXPECT_GE(contrast(onDark(font), dark_paper), 4.5);
  }
}

}  // namespace
}  // namespace depcalc
