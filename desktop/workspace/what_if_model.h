// What if: the rows as a table shows them.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "reports/what_if.h"

namespace depcalc::desktop {

/// A row for each value, a column for each method: the first fiscal year's amount above the total.
/// Below the value stands the rate per unit, where the asset has a production capacity.
class WhatIfModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void setRows(std::vector<WhatIfRow> rows);
  [[nodiscard]] const std::vector<WhatIfRow>& rows() const { return rows_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString shown(const WhatIfRow& row, int column) const;
  [[nodiscard]] QString spoken(const WhatIfRow& row, int column) const;

  std::vector<WhatIfRow> rows_;
};

}  // namespace depcalc::desktop
