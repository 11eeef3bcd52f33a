// A grid as Qt's item views read it.
#pragma once

#include <QAbstractTableModel>

#include "controls/grid.h"

namespace depcalc::desktop {

/// Reads the grid cell by cell as it is asked; keeps nothing.
class GridTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridTable(const Grid& grid) : grid_(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  [[nodiscard]] const Grid& grid() const { return grid_; }
  void restructure();

 private:
  const Grid& grid_;
};

}  // namespace depcalc::desktop
