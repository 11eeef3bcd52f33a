// The widget of a grid.
#pragma once

#include <QTableView>
#include <optional>

#include "controls/user.h"
#include "desktop/widgets/caption_strip.h"
#include "desktop/widgets/control_binding.h"
#include "desktop/widgets/grid_table.h"

namespace depcalc::desktop {

/// Only cells that are to be seen are read and drawn. The column of the current cell is marked,
/// unless it is the first, which holds captions. Captions that the page has scrolled away lie over
/// the cells at the edge. A context menu copies.
class GridWidget : public QTableView {
  Q_OBJECT

 public:
  GridWidget(Grid& grid, Surface& surface, QWidget* parent);

  [[nodiscard]] Grid& control() const { return grid_; }

  /// Brings the current cell where the user can see it.
  void revealCurrent();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent*) override {}
  void mouseMoveEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Cell {
    int row = 0;
    int column = 0;
    bool operator==(const Cell&) const = default;
  };

  [[nodiscard]] static Cell neighbour(const Cell& cell, Direction direction);
  void apply(Aspect aspect);
  void showStructure();
  void showCurrent();
  void showScrollBars();
  void clickCell(int row, int column);
  [[nodiscard]] Cell current() const { return {grid_.row(), grid_.column()}; }
  [[nodiscard]] bool isInside(const Cell& cell) const;
  void point(const Cell& cell);
  void goOn(Direction direction);
  void openCell(int row, int column);
  [[nodiscard]] QPoint menuPlace(const QContextMenuEvent& event);
  void repaintColumn(int column);
  void keepCaptionsInSight();

  Grid& grid_;
  GridTable table_;
  int shown_column_ = 0;
  std::optional<Cell> pointed_;  ///< last, since the grid was filled
  bool keeps_current_ = true;    ///< whether a click makes its cell the current one
  QVector<CaptionStrip*> captions_;
  InputBinding binding_;
};

}  // namespace depcalc::desktop
