// The window of a grid.
#pragma once

#include "controls/grid.h"
#include "windows/controls/control_window.h"
#include "windows/controls/grid_geometry.h"

namespace depcalc::native {

/// Only cells that are to be seen are read and drawn, so that a grid of any size scrolls at once.
/// Captions that the page has scrolled away lie over the cells at the edge. A grid that is smaller
/// than its cells has scroll bars of its own.
class GridWindow : public ControlWindow {
 public:
  GridWindow(Grid& grid, Surface& surface) : ControlWindow(grid, surface), grid_(grid) {}

  void create(HWND parent) override;
  void place(const Around& around) override;
  void restyle() override;
  /// Of the current cell, which is what matters of a grid that is larger than the page.
  [[nodiscard]] RECT areaOf(const Control& control) const override;

  [[nodiscard]] Grid& grid() const { return grid_; }
  /// In client coordinates; what lies below a caption is there all the same.
  [[nodiscard]] RECT cellArea(int row, int column) const;

 protected:
  LRESULT handleMessage(UINT message, WPARAM wide, LPARAM low) override;
  void apply(Aspect aspect) override;

 private:
  struct Cell {
    int row = -1;
    int column = -1;
  };

  [[nodiscard]] POINT origin() const;
  [[nodiscard]] POINT gone() const;
  [[nodiscard]] Cell cellAt(POINT at) const;
  void draw(const Canvas& canvas, const RECT& part);
  void drawStrip(const Canvas& canvas, const RECT& strip, POINT shift, bool focused);
  void restructure();
  void showCurrent();
  void showScrollBars();
  void scrollTo(int bar, int position);
  void clickCell(Cell cell);
  bool keyDown(WPARAM key);

  Grid& grid_;
  GridGeometry geometry_;
  POINT scrolled_{};  ///< by bars of its own
};

}  // namespace depcalc::native
