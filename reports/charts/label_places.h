// Where names of points have room.
#pragma once

#include <optional>
#include <vector>

#include "reports/pages/paper.h"

namespace depcalc {

/// What something covers, in twips.
struct Covered {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  [[nodiscard]] bool meets(const Covered& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

/// Finds a place beside a point for its name: within bounds and upon nothing that is taken; of
/// several the one with the fewest lines through it.
class LabelPlaces {
 public:
  explicit LabelPlaces(const Covered& bounds) : bounds_(bounds) {}

  void addLine(std::vector<PaperPoint> points) { lines_.push_back(std::move(points)); }
  void take(const Covered& covered) { taken_.push_back(covered); }
  /// Takes the place for a text of that size, `reach` away from `point`; none where there is none.
  [[nodiscard]] std::optional<Covered> takeBeside(PaperPoint point, double reach, double width,
                                                  double height);

 private:
  [[nodiscard]] bool isFree(const Covered& box) const;
  [[nodiscard]] int linesThrough(const Covered& box) const;

  Covered bounds_;
  std::vector<std::vector<PaperPoint>> lines_;
  std::vector<Covered> taken_;
};

}  // namespace depcalc
