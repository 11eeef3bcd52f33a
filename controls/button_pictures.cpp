#include "controls/button_pictures.h"

#include <algorithm>
#include <array>

namespace depcalc {
namespace {

constexpr std::string_view pressed_suffix = "-pressed";

constexpr Stroke move(double x, double y) { return {Stroke::Kind::move, x, y}; }
constexpr Stroke line(double x, double y) { return {Stroke::Kind::line, x, y}; }
constexpr Stroke close() { return {Stroke::Kind::close}; }
constexpr Stroke dot(double x, double y) { return {Stroke::Kind::dot, x, y, 0, 0, 0.4}; }
constexpr Stroke box(double x, double y, double width, double height) {
  return {Stroke::Kind::rectangle, x, y, width, height};
}
constexpr Stroke box(double x, double y, double width, double height, double radius) {
  return {Stroke::Kind::roundedRectangle, x, y, width, height, radius};
}

constexpr std::array calculator = {
    box(2.5, 1, 11, 14, 1.5),
    box(5, 3.5, 6, 2.5),
    dot(5.2, 9),
    dot(8, 9),
    dot(10.8, 9),
    dot(5.2, 12),
    dot(8, 12),
    dot(10.8, 12),
};
constexpr std::array plus = {move(8, 2.5), line(8, 13.5), move(2.5, 8), line(13.5, 8)};
constexpr std::array tick = {move(2.5, 8.5), line(6.5, 12.5), line(13.5, 3.5)};
constexpr std::array pencil = {
    move(2, 14),   line(3, 10.2), line(10.8, 2.4), line(13.6, 5.2),
    line(5.8, 13), close(),       move(8.8, 4.4),  line(11.6, 7.2),
};
constexpr std::array bin = {
    move(2.5, 4), line(13.5, 4), move(6, 4),      line(6, 1.8),     line(10, 1.8),
    line(10, 4),  move(4, 4),    line(4.8, 14.4), line(11.2, 14.4), line(12, 4),
    move(6.8, 7), line(7, 11.5), move(9.2, 7),    line(9, 11.5),
};
constexpr std::array printer = {box(4, 1.5, 8, 4), box(1.5, 5.5, 13, 6, 1), box(4, 9.5, 8, 5)};
constexpr std::array cross = {move(3, 3), line(13, 13), move(13, 3), line(3, 13)};

constexpr std::array pictures = {
    ButtonPicture{"calc", calculator}, ButtonPicture{"new", plus},
    ButtonPicture{"clear", plus},      ButtonPicture{"save", tick},
    ButtonPicture{"edit", pencil},     ButtonPicture{"delete", bin},
    ButtonPicture{"print", printer},   ButtonPicture{"close", cross, true},
};

}  // namespace

const ButtonPicture* buttonPicture(std::string_view name) {
  if (isPressedPicture(name)) name.remove_suffix(pressed_suffix.size());
  const auto found = std::find_if(pictures.begin(), pictures.end(),
                                  [name](const ButtonPicture& at) { return at.name == name; });
  return found == pictures.end() ? nullptr : &*found;
}

bool isPressedPicture(std::string_view name) { return name.ends_with(pressed_suffix); }

}  // namespace depcalc
