// How the cells of a grid look.
#pragma once

#include <QStyledItemDelegate>

#include "controls/grid.h"
#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// By what each cell is, and whether its column is the current one.
class GridPainter : public QStyledItemDelegate {
  Q_OBJECT

 public:
  GridPainter(const Grid& grid, const Surface& surface, QObject* parent)
      : QStyledItemDelegate(parent), grid_(grid), surface_(surface) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  void drawText(QPainter& painter, const QRect& cell, int row, int column) const;
  void drawLines(QPainter& painter, const QRect& cell, int row, int column, bool focused) const;

  const Grid& grid_;
  const Surface& surface_;
};

}  // namespace depcalc::desktop
