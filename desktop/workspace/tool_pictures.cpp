#include "desktop/workspace/tool_pictures.h"

#include <array>
#include <utility>

namespace depcalc::desktop {
namespace {

constexpr Stroke move(double x, double y) { return {Stroke::Kind::move, x, y}; }
constexpr Stroke line(double x, double y) { return {Stroke::Kind::line, x, y}; }
constexpr Stroke box(double x, double y, double width, double height) {
  return {Stroke::Kind::rectangle, x, y, width, height};
}

/// Out of the door.
constexpr std::array dispose = {
    move(7, 2),  line(2.5, 2), line(2.5, 14), line(7, 14),  move(6.5, 8),
    line(14, 8), move(11, 5),  line(14, 8),   line(11, 11),
};
constexpr std::array undo = {
    move(6, 2.5),   line(2.5, 6),     line(6, 9.5),    move(2.5, 6),
    line(9.5, 6),   line(11.8, 6.7),  line(13.2, 8.3), line(13.5, 10),
    line(13, 11.8), line(11.5, 13.2), line(9.5, 13.5), line(7, 13.5),
};
constexpr std::array redo = {
    move(10, 2.5),  line(13.5, 6), line(10, 9.5), move(13.5, 6),   line(6.5, 6),    line(4.2, 6.7),
    line(2.8, 8.3), line(2.5, 10), line(3, 11.8), line(4.5, 13.2), line(6.5, 13.5), line(9, 13.5),
};
constexpr std::array import = {
    move(8, 1.5),    line(8, 10),   move(4.8, 7),   line(8, 10.2),    line(11.2, 7),
    move(2.5, 10.5), line(2.5, 14), line(13.5, 14), line(13.5, 10.5),
};
constexpr std::array reports = {
    box(3, 1.5, 10, 13), move(5.5, 5),  line(10.5, 5), move(5.5, 8),
    line(10.5, 8),       move(5.5, 11), line(8.5, 11),
};

constexpr std::array<std::pair<std::string_view, std::span<const Stroke>>, 5> pictures = {{
    {"dispose", dispose},
    {"undo", undo},
    {"redo", redo},
    {"import", import},
    {"reports", reports},
}};

}  // namespace

std::span<const Stroke> toolPicture(std::string_view name) {
  for (const auto& [known, strokes] : pictures) {
    if (known == name) return strokes;
  }
  const ButtonPicture* const button = buttonPicture(name);
  return button == nullptr ? std::span<const Stroke>() : button->strokes;
}

}  // namespace depcalc::desktop
