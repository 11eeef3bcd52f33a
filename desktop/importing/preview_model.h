// The rows of a file, as its preview shows them.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <vector>

#include "importing/asset_import.h"

namespace depcalc::desktop {

/// The row's number with a check box (whether it is to be imported), what there is to say of it,
/// and its texts, which can be edited. Only rows in sight are asked for.
class PreviewModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { line_column, remark_column, first_text_column };

  PreviewModel(AssetImport& import, QObject* parent);

  /// Takes rows and columns anew.
  void show(RowFilter filter);
  /// What every row says may be another.
  void refresh();
  [[nodiscard]] std::size_t rowAt(int row) const { return order_[static_cast<std::size_t>(row)]; }
  /// The cell that is wrong first in `row`; an invalid one where none is.
  [[nodiscard]] QModelIndex firstProblemIn(int row) const;
  /// For the rows that cannot be imported, and those that are there already.
  void setColours(const QColor& text, const QColor& base);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  /// A row was corrected, or left out.
  void changed();

 private:
  [[nodiscard]] AssetColumn columnAt(int column) const {
    return columns_[static_cast<std::size_t>(column - first_text_column)];
  }
  [[nodiscard]] QString textAt(const QModelIndex& index) const;
  [[nodiscard]] QVariant background(const QModelIndex& index) const;
  [[nodiscard]] bool isFoundIn(const std::vector<RowFinding>& findings, int column) const;

  AssetImport& import_;
  std::vector<std::uint32_t> order_;
  std::vector<AssetColumn> columns_;
  QColor problem_;
  QColor duplicate_;
  QColor faint_;
};

}  // namespace depcalc::desktop
