#include "windows/controls/plane.h"

#include <algorithm>

#include "windows/controls/gdi_handles.h"
#include "windows/controls/zoom.h"

namespace depcalc::native {
namespace {

/// Round at its ends and where lines meet.
PenHandle penOf(double width, COLORREF colour) {
  const LOGBRUSH brush{BS_SOLID, colour, 0};
  const auto whole = static_cast<DWORD>(std::max(1, rounded(width)));
  return PenHandle(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND, whole,
                                &brush, 0, nullptr));
}

}  // namespace

POINT Plane::at(double x, double y) const {
  return {rounded((x - left) * factor), rounded((y - top) * factor)};
}

void Plane::shape(double pen, COLORREF border, const std::optional<COLORREF>& fill,
                  const std::function<void()>& draw) const {
  const SavedDc saved(dc);
  const PenHandle outline = pen > 0 ? penOf(pen * factor, border) : PenHandle();
  const BrushHandle inside = fill ? BrushHandle(CreateSolidBrush(*fill)) : BrushHandle();
  SelectObject(dc, pen > 0 ? static_cast<HGDIOBJ>(outline.get()) : GetStockObject(NULL_PEN));
  SelectObject(dc, fill ? static_cast<HGDIOBJ>(inside.get()) : GetStockObject(NULL_BRUSH));
  draw();
  SelectObject(dc, GetStockObject(NULL_PEN));
  SelectObject(dc, GetStockObject(NULL_BRUSH));
}

void Plane::roundRectangle(double left_edge, double top_edge, double right, double bottom,
                           double corner) const {
  const POINT from = at(left_edge, top_edge);
  const POINT to = at(right, bottom);
  const int side = rounded(2 * corner * factor);
  RoundRect(dc, from.x, from.y, to.x + 1, to.y + 1, side, side);
}

void Plane::ellipse(double x, double y, double radius) const {
  const POINT from = at(x - radius, y - radius);
  const POINT to = at(x + radius, y + radius);
  Ellipse(dc, from.x, from.y, to.x + 1, to.y + 1);
}

}  // namespace depcalc::native
