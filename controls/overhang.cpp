#include "controls/overhang.h"

#include <algorithm>

namespace depcalc {
namespace {

constexpr int room_behind = 120;  // twips

int reaching(int edge, int far_side) { return far_side > edge ? far_side + room_behind : edge; }

}  // namespace

Place placeWithOverhang(const UserControl& control) {
  Place place = control.place();
  for (const Control* child : control.children()) {
    if (!floats(*child) || !child->visible()) continue;
    place.width = std::max(place.width, reaching(control.width(), child->left() + child->width()));
    place.height =
        std::max(place.height, reaching(control.height(), child->top() + child->height()));
  }
  return place;
}

bool floats(const Control& child) {
  return child.kind() == ControlKind::userControl && (child.left() != 0 || child.top() != 0);
}

}  // namespace depcalc
