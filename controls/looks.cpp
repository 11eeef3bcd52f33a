#include "controls/looks.h"

#include <algorithm>
#include <cmath>

#include "controls/user_control.h"

namespace depcalc::looks {
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

bool contains(const Place& outer, const Place& inner) {
  return inner.left >= outer.left && inner.top >= outer.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

}  // namespace

Tone onDark(Tone given) {
  const double lightness = darkest + inverted(given.lightness) * (lightest - darkest);
  const double saturation = std::min(given.saturation, strongest_hue);
  // Dark surfaces of a strong hue look lurid: the darker, the greyer.
  return {saturation * (lightness < 0.5 ? 0.4 : 1.0), lightness};
}

bool surroundsPage(const Shape& shape) {
  const std::vector<Control*>& siblings = shape.parent()->children();
  return !shape.rounded() &&
         std::any_of(siblings.begin(), siblings.end(), [](const Control* sibling) {
           return sibling->kind() == ControlKind::shape &&
                  static_cast<const Shape*>(sibling)->rounded();
         });
}

Colour groundBehind(const Control& control) {
  const Shape* behind = nullptr;
  for (const Control* sibling : control.parent()->children()) {
    if (sibling->kind() != ControlKind::shape || sibling->stacking() > control.stacking()) continue;
    const auto& shape = static_cast<const Shape&>(*sibling);
    const bool nearer = behind == nullptr || shape.stacking() > behind->stacking();
    if (nearer && shape.visible() && contains(shape.place(), control.place())) behind = &shape;
  }
  return behind != nullptr ? behind->backColour() : control.parent()->backColour();
}

std::string_view shownText(const Label& label) {
  constexpr std::string_view blanks = " \t\n\v\f\r";
  std::string_view text = label.text();
  if (label.wordWrap()) return text;
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

Colour cellGround(const Grid& grid, int row, int column) {
  const CellKind kind = grid.kind(row, column);
  if (kind == CellKind::heading) return heading;
  if (isMarkedColumn(grid, column)) return selection;
  return isBold(kind) ? caption : window_background;
}

bool isMarkedColumn(const Grid& grid, int column) { return column > 0 && column == grid.column(); }

}  // namespace depcalc::looks
