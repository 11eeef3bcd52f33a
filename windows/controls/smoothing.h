// Shapes without steps at their edges.
#pragma once

#include "windows/controls/plane.h"

namespace depcalc::native {

/// GDI draws a dot or none. Where the device has pixels, shapes are drawn at a multiple of its
/// resolution in memory, over what is there, and averaged; where it has none, they are vectors on
/// the device itself.
class Smoothing {
 public:
  using Draw = std::function<void(const Plane&)>;

  explicit Smoothing(HDC dc);

  [[nodiscard]] bool hasPixels() const { return has_pixels_; }
  /// Shows what `draw` draws inside `area`.
  void show(const RECT& area, const Draw& draw) const;
  /// The same in the four corners of `area` alone, squares of `side`, which meet in a small one.
  void drawCorners(const RECT& area, int side, const Draw& draw) const;

 private:
  HDC dc_;
  bool has_pixels_;
};

}  // namespace depcalc::native
