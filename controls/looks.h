// How the controls look in any toolkit: which tones, which texts, what is marked.
#pragma once

#include <array>
#include <string_view>

#include "controls/colour.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/shape.h"

namespace depcalc::looks {

// What the calculator gives no colour for.
inline constexpr Colour field_border = Colour::rgb(200, 172, 140);
inline constexpr Colour focus_ring = Colour::rgb(178, 84, 16);
inline constexpr Colour grid_line = Colour::rgb(196, 196, 196);
inline constexpr Colour caption = Colour::rgb(239, 239, 239);
inline constexpr Colour heading = Colour::rgb(225, 197, 168);
inline constexpr Colour selection = Colour::rgb(255, 238, 212);
inline constexpr Colour accent = Colour::rgb(102, 0, 0);
inline constexpr Colour paper = Colour::rgb(255, 247, 232);

/// The saturation and lightness (0 to 1) that a colour has on a dark desktop. It keeps its hue and
/// changes light for dark, so that what was readable stays so.
struct Tone {
  double saturation = 0;
  double lightness = 0;
};
[[nodiscard]] Tone onDark(Tone given);

// Twips.
inline constexpr double frame_corner = 75;
inline constexpr double field_corner = 45;
inline constexpr double field_margin = 60;
inline constexpr double list_arrow = 120;
inline constexpr double option_mark = 195;
inline constexpr double ring_gap = 60;
inline constexpr double ring_corner = 45;

inline constexpr double faint = 0.2;  ///< of the usual opacity

/// Whether the frame of a page lies within that of the whole screen. The outer one is then a faint
/// line, or the two would stand side by side.
[[nodiscard]] bool surroundsPage(const Shape& shape);

/// The colour that a control without a ground of its own stands on: that of the shape behind it, or
/// of what contains it.
[[nodiscard]] Colour groundBehind(const Control& control);

/// Blanks around a text of one line make room for nothing.
[[nodiscard]] std::string_view shownText(const Label& label);

/// What a cell of a grid stands on.
[[nodiscard]] Colour cellGround(const Grid& grid, int row, int column);
/// Whether the column is marked as the one of the current cell; the first, which holds captions,
/// is not.
[[nodiscard]] bool isMarkedColumn(const Grid& grid, int column);

/// A text too large for its cell is drawn smaller, in these parts of the usual size.
inline constexpr double cell_points = 8.25;
inline constexpr int cell_margin = 60;  ///< twips
inline constexpr std::array cell_parts = {1.0, 0.93, 0.87, 0.8, 0.75};
/// A grid on paper. Twips, and points: the first is the usual size, the others are for texts that
/// do not fit.
namespace printed {
inline constexpr double margin_beside = 55;
inline constexpr double margin_above = 35;  ///< two lines of the usual size still fit into 450
inline constexpr double inner_line = 5;
inline constexpr double outer_line = 15;
inline constexpr Colour line = Colour::rgb(184, 184, 184);
inline constexpr std::array cell_points = {8.0, 7.5, 7.0, 6.5, 6.0};
}  // namespace printed

/// Where `letter` stands in the text, as a capital at a word's start before anything else; -1:
/// nowhere.
template <typename Character>
[[nodiscard]] int mnemonicPosition(std::basic_string_view<Character> text, char letter) {
  const auto upper = [](Character c) {
    return c >= 'a' && c <= 'z' ? static_cast<Character>(c - 'a' + 'A') : c;
  };
  const Character wanted = upper(static_cast<Character>(letter));
  int anywhere = -1;
  for (std::size_t i = 0; letter != 0 && i < text.size(); ++i) {
    if (upper(text[i]) != wanted) continue;
    if (i == 0 || text[i - 1] == ' ' || text[i - 1] == '\n') return static_cast<int>(i);
    if (anywhere < 0) anywhere = static_cast<int>(i);
  }
  return anywhere;
}

}  // namespace depcalc::looks
