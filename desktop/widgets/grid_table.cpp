#include "desktop/widgets/grid_table.h"

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

int GridTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.rows();
}

int GridTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.columns();
}

QVariant GridTable::data(const QModelIndex& index, int role) const {
  const bool inside =
      index.isValid() && index.row() < grid_.rows() && index.column() < grid_.columns();
  if (!inside) return {};
  const auto text = [&] { return qtText(grid_.text(index.row(), index.column())); };
  switch (role) {
    case Qt::DisplayRole:
      return text();
    case Qt::ToolTipRole:
      return toolTipText(text());
    default:
      return {};
  }
}

void GridTable::restructure() {
  beginResetModel();
  endResetModel();
}

}  // namespace depcalc::desktop
