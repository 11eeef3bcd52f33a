#include "reports/charts/label_places.h"

#include <algorithm>

namespace depcalc {
namespace {

/// How much of the way from `a` to `b` lies between `low` and `high`: from `from` to `to`.
void narrow(double a, double b, double low, double high, double& from, double& to) {
  if (a == b) {
    if (a < low || a > high) to = -1;
    return;
  }
  const double first = (low - a) / (b - a);
  const double second = (high - a) / (b - a);
  from = std::max(from, std::min(first, second));
  to = std::min(to, std::max(first, second));
}

bool goesThrough(PaperPoint a, PaperPoint b, const Covered& box) {
  double from = 0;
  double to = 1;
  narrow(a.x, b.x, box.left, box.right, from, to);
  narrow(a.y, b.y, box.top, box.bottom, from, to);
  return from <= to;
}

}  // namespace

bool LabelPlaces::isFree(const Covered& box) const {
  const bool inside = box.left >= bounds_.left && box.right <= bounds_.right &&
                      box.top >= bounds_.top && box.bottom <= bounds_.bottom;
  return inside && std::none_of(taken_.begin(), taken_.end(),
                                [&](const Covered& other) { return box.meets(other); });
}

int LabelPlaces::linesThrough(const Covered& box) const {
  int through = 0;
  for (const std::vector<PaperPoint>& line : lines_) {
    for (std::size_t i = 1; i < line.size(); ++i) {
      through += static_cast<int>(goesThrough(line[i - 1], line[i], box));
    }
  }
  return through;
}

std::optional<Covered> LabelPlaces::takeBeside(PaperPoint point, double reach, double width,
                                               double height) {
  std::optional<Covered> best;
  int fewest = 0;
  for (const double dx : {reach, -reach - width, -width / 2}) {
    for (const double dy : {-reach - height, reach, -height / 2}) {
      const double left = point.x + dx;
      const double top = point.y + dy;
      const Covered box{left, top, left + width, top + height};
      if (!isFree(box)) continue;
      const int through = linesThrough(box);
      if (best && through >= fewest) continue;
      best = box;
      fewest = through;
    }
  }
  if (best) take(*best);
  return best;
}

}  // namespace depcalc
