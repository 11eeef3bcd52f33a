#include "windows/controls/keys.h"

namespace depcalc::native {

std::optional<Direction> directionOf(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return Direction::left;
    case VK_RIGHT:
      return Direction::right;
    case VK_UP:
      return Direction::up;
    case VK_DOWN:
      return Direction::down;
    default:
      return std::nullopt;
  }
}

bool isControlsOwn(WPARAM key) {
  switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_BACK:
    case VK_DELETE:
    case VK_SPACE:
    case VK_RETURN:
    case VK_ESCAPE:
      return true;
    default:
      return false;
  }
}

}  // namespace depcalc::native
