// The list of assets as Qt's item views read it.
#pragma once

#include <QAbstractTableModel>

#include "desktop/workspace/asset_list.h"

namespace depcalc::desktop {

/// Reads the list cell by cell as it is asked; keeps nothing. Assets that were disposed of are
/// greyed, their IDs struck out.
class AssetListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit AssetListModel(QObject* parent);

  /// Changes the list; views hear that every row is another.
  void change(const std::function<void(AssetList&)>& change);
  [[nodiscard]] const AssetList& list() const { return list_; }
  [[nodiscard]] std::int32_t numberAt(int row) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  AssetList list_;
};

}  // namespace depcalc::desktop
