// What each column of a file means.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

#include "importing/asset_import.h"

namespace depcalc::desktop {

/// The column's name in the file and its use, which can be chosen.
class ColumnsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { name_column, use_column, columns };

  ColumnsModel(AssetImport& import, QObject* parent)
      : QAbstractTableModel(parent), import_(import) {}

  /// Takes the columns as they are now; none while the file is being read.
  void show();
  /// What a column can mean, in the order of the list.
  [[nodiscard]] std::vector<ColumnUse> choices(int row) const;
  void choose(int row, const ColumnUse& use);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : columns;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 signals:
  void chosen();

 private:
  [[nodiscard]] const ColumnUse& useOf(int row) const {
    return import_.settings().uses[static_cast<std::size_t>(row)];
  }
  /// A text of the column, so that one sees what it holds.
  [[nodiscard]] QString example(int row) const;

  AssetImport& import_;
  int rows_ = 0;  ///< as the view knows them
};

/// Offers the uses of a column in a list.
class UseDelegate : public QStyledItemDelegate {
 public:
  UseDelegate(ColumnsModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;

 private:
  ColumnsModel& model_;
};

}  // namespace depcalc::desktop
