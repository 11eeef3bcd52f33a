#include "windows/controls/grid_window.h"

#include <windowsx.h>

#include <algorithm>

#include "windows/controls/accessible_children.h"
#include "windows/controls/keys.h"
#include "windows/controls/screen_window.h"
#include "windows/controls/scroll_bars.h"

namespace depcalc::native {

void GridWindow::create(HWND parent) {
  createOwn(parent, 0);
  restructure();
}

/// The grid's own top left corner in client coordinates.
POINT GridWindow::origin() const { return {corner().x - scrolled_.x, corner().y - scrolled_.y}; }

void GridWindow::place(const Around& around) {
  ControlWindow::place(around);
  showScrollBars();
  repaint();
}

void GridWindow::restyle() { restructure(); }

void GridWindow::restructure() {
  geometry_ = GridGeometry(grid_, surface().zoom());
  showScrollBars();
  repaint();
}

void GridWindow::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::structure:
    case Aspect::font:
      restructure();
      break;
    case Aspect::current:
      showCurrent();
      break;
    case Aspect::scroll: {
      const bool inside =
          grid_.topRow() < geometry_.rows() && grid_.leftColumn() < geometry_.columns();
      if (!inside) break;
      const RECT cell = geometry_.cell(grid_.topRow(), grid_.leftColumn());
      scrollTo(SB_HORZ, cell.left);
      scrollTo(SB_VERT, cell.top);
      break;
    }
    default:
      repaint();
  }
}

RECT GridWindow::cellArea(int row, int column) const {
  RECT cell = geometry_.cell(row, column);
  OffsetRect(&cell, origin().x, origin().y);
  return cell;
}

RECT GridWindow::areaOf(const Control& /*control*/) const {
  const bool inside = grid_.row() < geometry_.rows() && grid_.column() < geometry_.columns();
  if (!inside) return {};
  RECT area = cellArea(grid_.row(), grid_.column());
  // In sight and not below the captions.
  const RECT captions = geometry_.cell(0, 0);
  if (grid_.column() > 0) area.left -= captions.right;
  if (grid_.row() > 0) area.top -= captions.bottom;
  return area;
}

void GridWindow::showCurrent() {
  repaint();
  if (!alive() || GetFocus() != handle()) return;
  const bool inside = grid_.row() < geometry_.rows() && grid_.column() < geometry_.columns();
  if (!inside) return;
  RECT area = areaOf(grid_);
  MapWindowPoints(handle(), surface().frame(), reinterpret_cast<POINT*>(&area), 2);
  ScreenWindow::reveal(surface(), area);
  NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, numberOfCurrent(grid_));
}

/// How much of the grid's left and top is not to be seen: scrolled away by the page or by itself.
/// Of a sliver of the table the captions would be all, and one of only a few cells has none.
POINT GridWindow::gone() const {
  if (handle() == nullptr || geometry_.rows() < 2 || geometry_.columns() < 2) return {};
  RECT client{};
  GetClientRect(handle(), &client);
  RECT seen = around().seen;
  MapWindowPoints(GetParent(handle()), handle(), reinterpret_cast<POINT*>(&seen), 2);
  IntersectRect(&seen, &seen, &client);
  const RECT captions = geometry_.cell(0, 0);
  const bool room =
      seen.right - seen.left > 2 * captions.right && seen.bottom - seen.top > 2 * captions.bottom;
  if (!room) return {};
  return {std::max<LONG>(0, seen.left - origin().x), std::max<LONG>(0, seen.top - origin().y)};
}

GridWindow::Cell GridWindow::cellAt(POINT at) const {
  const POINT away = gone();
  const RECT captions = geometry_.cell(0, 0);
  POINT there{at.x - origin().x, at.y - origin().y};
  if (there.x - away.x < captions.right && away.x > 0) there.x -= away.x;
  if (there.y - away.y < captions.bottom && away.y > 0) there.y -= away.y;
  return {geometry_.rowAt(there.y), geometry_.columnAt(there.x)};
}

/// Cells of the grid drawn elsewhere than they are: `strip` is where, `shift` by how much.
void GridWindow::drawStrip(const Canvas& canvas, const RECT& strip, POINT shift, bool focused) {
  const SavedDc saved(canvas.dc());
  IntersectClipRect(canvas.dc(), strip.left, strip.top, strip.right, strip.bottom);
  RECT cells = strip;
  OffsetRect(&cells, -origin().x - shift.x, -origin().y - shift.y);
  drawCells(canvas, grid_, geometry_, cells, {origin().x + shift.x, origin().y + shift.y}, focused);
}

void GridWindow::draw(const Canvas& canvas, const RECT& part) {
  const bool focused = GetFocus() == handle();
  drawGridGround(canvas, grid_, part);
  if (geometry_.rows() > 0 && geometry_.columns() > 0) {
    drawStrip(canvas, part, {}, focused);
    const POINT away = gone();
    const RECT captions = geometry_.cell(0, 0);
    const LONG left = origin().x + away.x;
    const LONG top = origin().y + away.y;
    RECT column{left, part.top, left + captions.right, part.bottom};
    RECT row{part.left, top, part.right, top + captions.bottom};
    if (away.x > 0 && IntersectRect(&column, &column, &part) != FALSE) {
      drawStrip(canvas, column, {away.x, 0}, focused);
    }
    if (away.y > 0 && IntersectRect(&row, &row, &part) != FALSE) {
      drawStrip(canvas, row, {0, away.y}, focused);
    }
    if (away.x > 0 && away.y > 0) {
      drawStrip(canvas, {left, top, left + captions.right, top + captions.bottom}, away, focused);
    }
  }
  RECT client{};
  GetClientRect(handle(), &client);
  drawGridFrame(canvas, geometry_, client, origin());
}

void GridWindow::showScrollBars() {
  if (handle() == nullptr) return;
  const RECT area = surface().zoom().rect(grid_.place());
  for (const int bar : {SB_HORZ, SB_VERT}) {
    const int room = bar == SB_HORZ ? area.right - area.left : area.bottom - area.top;
    const int length = bar == SB_HORZ ? geometry_.width() : geometry_.height();
    // The model sizes a grid to its cells and leaves two pixels for the frame.
    const bool needed = length > room + 2 * surface().zoom().pixels(15);
    LONG& scrolled = bar == SB_HORZ ? scrolled_.x : scrolled_.y;
    scrolled = needed ? std::clamp<LONG>(scrolled, 0, length - room) : 0;
    ShowScrollBar(handle(), bar, needed ? TRUE : FALSE);
    if (needed) setScrollBar(handle(), bar, length, room, static_cast<int>(scrolled));
  }
}

void GridWindow::scrollTo(int bar, int position) {
  LONG& scrolled = bar == SB_HORZ ? scrolled_.x : scrolled_.y;
  scrolled = position;
  showScrollBars();
  repaint();
}

void GridWindow::clickCell(Cell cell) {
  const bool inside =
      cell.row >= 0 && cell.row < grid_.rows() && cell.column >= 0 && cell.column < grid_.columns();
  if (!inside) return;
  surface().act([&](User& user) { user.clickCell(grid_, cell.row, cell.column); });
}

bool GridWindow::keyDown(WPARAM key) {
  const std::optional<Direction> direction = directionOf(key);
  if (direction.has_value()) {
    surface().act([&](User& user) { user.arrow(*direction); });
    return true;
  }
  switch (key) {
    case VK_SPACE:
      clickCell({grid_.row(), grid_.column()});
      return true;
    case VK_HOME:
      clickCell({grid_.row(), grid_.columns() > 1 ? 1 : 0});
      return true;
    case VK_END:
      clickCell({grid_.row(), grid_.columns() - 1});
      return true;
    default:
      return false;
  }
}

LRESULT GridWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_PAINT:
      paint([this](const Canvas& canvas, const RECT& part) { draw(canvas, part); });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      const Cell cell = cellAt({GET_X_LPARAM(low), GET_Y_LPARAM(low)});
      if (cell.row >= 0 && cell.column >= 0) {
        clickCell(cell);
      } else {
        surface().act([this](User& user) { user.moveFocus(grid_); });
      }
      if (alive() && grid_.hasFocus()) surface().giveKeysTo(grid_);
      return 0;
    }
    case WM_KEYDOWN:
      if (keyDown(wide)) return 0;
      break;
    case WM_HSCROLL:
      scrollTo(SB_HORZ, scrolledPosition(handle(), SB_HORZ, wide));
      return 0;
    case WM_VSCROLL:
      scrollTo(SB_VERT, scrolledPosition(handle(), SB_VERT, wide));
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    default:
      break;
  }
  const LRESULT result = ControlWindow::handleMessage(message, wide, low);
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) repaint();
  return result;
}

}  // namespace depcalc::native
