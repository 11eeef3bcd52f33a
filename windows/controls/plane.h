// Shapes on a device context that may be finer than the canvas they belong to.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace depcalc::native {

/// A device context with `factor` units to one of the canvas's, its corner at (`left`, `top`) of
/// that. Whatever is drawn on it is said in the canvas's units.
struct Plane {
  HDC dc;
  double factor;
  double left;
  double top;

  [[nodiscard]] POINT at(double x, double y) const;

  /// Whatever `draw` draws, filled and with a border as thick as `pen`, which may be none.
  void shape(double pen, COLORREF border, const std::optional<COLORREF>& fill,
             const std::function<void()>& draw) const;

  // To be drawn as shapes.
  void roundRectangle(double left_edge, double top_edge, double right, double bottom,
                      double corner) const;
  void ellipse(double x, double y, double radius) const;
};

}  // namespace depcalc::native
