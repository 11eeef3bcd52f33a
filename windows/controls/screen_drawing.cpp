#include "windows/controls/screen_drawing.h"

#include <algorithm>
#include <vector>

#include "controls/grid.h"
#include "windows/controls/control_drawing.h"
#include "windows/controls/grid_geometry.h"

namespace depcalc::native {
namespace {

void drawUserControl(const Canvas& canvas, const UserControl& control, const RECT& area);

void drawGrid(const Canvas& canvas, const Grid& grid, const RECT& area) {
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), area.left, area.top, area.right, area.bottom);
  const GridGeometry geometry(grid, canvas.zoom());
  drawGridGround(canvas, grid, area);
  drawCells(canvas, grid, geometry, {0, 0, area.right - area.left, area.bottom - area.top},
            {area.left, area.top}, false);
  drawGridFrame(canvas, geometry, area, {area.left, area.top});
}

void drawControl(const Canvas& canvas, const Control& control, const RECT& area) {
  switch (control.kind()) {
    case ControlKind::label:
      return drawLabel(canvas, static_cast<const Label&>(control), area);
    case ControlKind::textBox:
      return drawTextBox(canvas, static_cast<const TextBox&>(control), area, false);
    case ControlKind::dropDownList:
      return drawList(canvas, static_cast<const DropDownList&>(control), area, false);
    case ControlKind::optionButton:
      return drawOption(canvas, static_cast<const OptionButton&>(control), area, false);
    case ControlKind::pictureButton:
      return drawButton(canvas, static_cast<const PictureButton&>(control), area, false);
    case ControlKind::pictureBox:
      return drawPictureBox(canvas, static_cast<const PictureBox&>(control), area);
    case ControlKind::shape:
      return drawShape(canvas, static_cast<const Shape&>(control), area);
    case ControlKind::grid:
      return drawGrid(canvas, static_cast<const Grid&>(control), area);
    case ControlKind::userControl:
      return drawUserControl(canvas, static_cast<const UserControl&>(control), area);
  }
}

void drawUserControl(const Canvas& canvas, const UserControl& control, const RECT& area) {
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), area.left, area.top, area.right, area.bottom);
  canvas.fill(area, canvas.tones().ground(control.backColour()));
  std::vector<Control*> children = control.children();
  std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
    return a->stacking() < b->stacking();
  });
  for (const Control* child : children) {
    if (!child->visible()) continue;
    drawControl(canvas, *child, canvas.zoom().rect(child->place(), {area.left, area.top}));
  }
}

bool isMetafile(HDC dc) {
  const DWORD kind = GetObjectType(dc);
  return kind == OBJ_ENHMETADC || kind == OBJ_METADC;
}

/// In device units where there is a device: fonts stand upright and shapes meet pixels whatever
/// the mapping is.
RECT deviceBounds(HDC dc, RECT bounds) {
  if (isMetafile(dc)) return bounds;
  LPtoDP(dc, reinterpret_cast<POINT*>(&bounds), 2);
  SetGraphicsMode(dc, GM_COMPATIBLE);
  SetMapMode(dc, MM_TEXT);
  SetWindowOrgEx(dc, 0, 0, nullptr);
  SetViewportOrgEx(dc, 0, 0, nullptr);
  return {std::min(bounds.left, bounds.right), std::min(bounds.top, bounds.bottom),
          std::max(bounds.left, bounds.right), std::max(bounds.top, bounds.bottom)};
}

}  // namespace

void drawScreen(HDC dc, const RECT& bounds, const UserControl& root, const Ambient& ambient) {
  if (root.width() == 0 || root.height() == 0) return;
  const SavedDc saved(dc);
  const RECT area = deviceBounds(dc, bounds);
  const Zoom zoom{static_cast<double>(area.right - area.left) / root.width(),
                  static_cast<double>(area.bottom - area.top) / root.height()};
  const std::wstring family = ambient.font_family.empty() ? usualFamily() : ambient.font_family;
  TextMeasure measure(family);
  Fonts fonts(family, zoom.y * 1440);
  const Tones tones(ambient.colours);
  const Canvas canvas(dc, zoom, measure, fonts, tones);
  drawUserControl(canvas, root, area);
}

}  // namespace depcalc::native
