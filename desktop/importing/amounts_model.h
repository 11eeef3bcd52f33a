// The file's own amounts of an asset beside ours.
#pragma once

#include <QAbstractTableModel>

#include "importing/row_judge.h"

namespace depcalc::desktop {

/// A column a fiscal year; the file's amounts, ours, and what they differ by.
class AmountsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit AmountsModel(QObject* parent) : QAbstractTableModel(parent) {}

  void show(std::vector<ComparedAmount> amounts);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : 3;
  }
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(amounts_.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  std::vector<ComparedAmount> amounts_;
};

}  // namespace depcalc::desktop
