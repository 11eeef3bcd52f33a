#include "desktop/importing/columns_model.h"

#include <QComboBox>
#include <algorithm>

#include "desktop/importing/import_captions.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

void ColumnsModel::show() {
  const int rows = import_.isReading() ? 0 : static_cast<int>(import_.settings().uses.size());
  if (rows == rows_) {
    if (rows > 0) emit dataChanged(index(0, 0), index(rows - 1, use_column));
    return;
  }
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

int ColumnsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

/// An amount only of the year in the column's name, or of the one it was taken for.
std::vector<ColumnUse> ColumnsModel::choices(int row) const {
  std::vector<ColumnUse> all{ColumnUse()};
  for (std::size_t c = 0; c < asset_column_names.size(); ++c) {
    all.emplace_back(static_cast<AssetColumn>(c));
  }
  const std::vector<std::string> name{import_.header()[static_cast<std::size_t>(row)]};
  for (const ColumnUse& amount : {usesOfHeader(name).front(), useOf(row)}) {
    const bool is_amount = std::holds_alternative<AmountOfYear>(amount);
    if (is_amount && std::find(all.begin(), all.end(), amount) == all.end()) all.push_back(amount);
  }
  return all;
}

void ColumnsModel::choose(int row, const ColumnUse& use) {
  if (use == useOf(row)) return;
  import_.setUse(static_cast<std::size_t>(row), use);
  emit chosen();
}

QString ColumnsModel::example(int row) const {
  constexpr std::size_t looked_at = 20;
  for (std::size_t i = 0; i < std::min(looked_at, import_.rowCount()); ++i) {
    const auto& cells = import_.fileRow(i).cells;
    if (static_cast<std::size_t>(row) >= cells.size()) continue;
    const QString text = qtText(cells[static_cast<std::size_t>(row)]).trimmed();
    if (!text.isEmpty()) return text;
  }
  return {};
}

QVariant ColumnsModel::data(const QModelIndex& index, int role) const {
  const QString name = qtText(import_.header()[static_cast<std::size_t>(index.row())]);
  if (role == Qt::ToolTipRole) {
    const QString text = example(index.row());
    return toolTipText(text.isEmpty() ? name : tr("%1, for example %2").arg(name, text));
  }
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return index.column() == name_column ? name : captionOf(useOf(index.row()));
}

QVariant ColumnsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section == name_column ? tr("In the file") : tr("Taken as");
}

Qt::ItemFlags ColumnsModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags seen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return index.column() == use_column ? seen | Qt::ItemIsEditable : seen;
}

QWidget* UseDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                   const QModelIndex& index) const {
  auto* const list = new QComboBox(parent);
  for (const ColumnUse& use : model_.choices(index.row())) list->addItem(captionOf(use));
  list->setMaxVisibleItems(static_cast<int>(model_.choices(index.row()).size()));
  list->setAccessibleName(
      QObject::tr("Meaning of %1").arg(index.siblingAtColumn(0).data().toString()));
  // Chosen is done: nobody should have to leave the cell first.
  connect(list, &QComboBox::activated, this, [this, list] {
    auto* const self = const_cast<UseDelegate*>(this);
    emit self->commitData(list);
    emit self->closeEditor(list);
  });
  return list;
}

void UseDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* const list = static_cast<QComboBox*>(editor);
  list->setCurrentIndex(std::max(0, list->findText(index.data().toString())));
}

void UseDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                               const QModelIndex& index) const {
  const auto chosen = static_cast<std::size_t>(static_cast<QComboBox*>(editor)->currentIndex());
  model_.choose(index.row(), model_.choices(index.row()).at(chosen));
}

}  // namespace depcalc::desktop
