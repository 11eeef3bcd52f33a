// The pictures of the calculator's buttons, as vectors for any toolkit to draw.
#pragma once

#include <span>
#include <string_view>

namespace depcalc {

/// A stroke, or part of one, in a square of side 16.
struct Stroke {
  enum class Kind {
    move,              ///< a line begins at (x, y)
    line,              ///< and goes on to (x, y)
    close,             ///< back to where it began
    rectangle,         ///< its top left corner at (x, y)
    roundedRectangle,  ///< the same, corners of `radius`
    dot                ///< a circle of `radius` around (x, y)
  };
  Kind kind = Kind::move;
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  double radius = 0;
};

inline constexpr double picture_side = 16;
inline constexpr double picture_pen = 1.6;  ///< width of the strokes in that square, round at ends

struct ButtonPicture {
  std::string_view name;
  std::span<const Stroke> strokes;
  bool bare = false;  ///< no caption, no frame
};

/// The picture "calc", also by the name of its pressed twin, "calc-pressed". None: null.
[[nodiscard]] const ButtonPicture* buttonPicture(std::string_view name);
[[nodiscard]] inline bool hasPicture(std::string_view name) {
  return buttonPicture(name) != nullptr;
}
[[nodiscard]] bool isPressedPicture(std::string_view name);

/// How a button is laid out around its picture, in twips and points.
namespace button_looks {
inline constexpr double corner = 60;
inline constexpr double line = 15;
inline constexpr double icon = 195;
inline constexpr double gap = 90;
inline constexpr double caption_points = 9;
}  // namespace button_looks

}  // namespace depcalc
