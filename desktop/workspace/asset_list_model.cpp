#include "desktop/workspace/asset_list_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "desktop/widgets/text_block.h"
#include "reports/company_years.h"

namespace depcalc::desktop {
namespace {

/// Most texts are plain, and of a full register there are 131,064.
std::string folded(std::string_view text) {
  std::string plain(text);
  for (char& character : plain) {
    if (static_cast<unsigned char>(character) >= 128)
      return qtText(text).toCaseFolded().toStdString();
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  }
  return plain;
}

/// Fainter than other texts, and still to be read.
QColor faintText() {
  constexpr float strength = 0.62F;
  QColor colour = QGuiApplication::palette().color(QPalette::Text);
  colour.setAlphaF(strength);
  return colour;
}

AssetColumn columnAt(int section) { return static_cast<AssetColumn>(section); }

bool isAmount(AssetColumn column) {
  return column == AssetColumn::basis || column == AssetColumn::book_value;
}

}  // namespace

AssetListModel::AssetListModel(QObject* parent) : QAbstractTableModel(parent), list_(folded) {}

void AssetListModel::change(const std::function<void(AssetList&)>& change) {
  beginResetModel();
  change(list_);
  endResetModel();
}

std::int32_t AssetListModel::numberAt(int row) const {
  return list_.asset(static_cast<std::size_t>(row)).saved().number;
}

int AssetListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.count());
}

int AssetListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : asset_column_count;
}

QVariant AssetListModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  const AssetColumn column = columnAt(index.column());
  const bool disposed = list_.isDisposed(row);
  const auto text = [&] { return qtText(list_.text(row, column)); };
  switch (role) {
    case Qt::DisplayRole:
      return text();
    case Qt::ToolTipRole:
      return toolTipText(text());
    case Qt::AccessibleTextRole:
      return disposed && index.column() == 0 ? tr("%1, disposed of").arg(text()) : text();
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (isAmount(column) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
      return disposed ? QVariant(faintText()) : QVariant();
    case Qt::FontRole: {
      if (!disposed || column != AssetColumn::id) return {};
      QFont font;
      font.setStrikeOut(true);
      return font;
    }
    default:
      return {};
  }
}

QVariant AssetListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  // Not to be seen: what a screen reader calls the row.
  if (orientation == Qt::Vertical) {
    return role == Qt::DisplayRole ? index(section, 0).data() : QVariant();
  }
  if (section < 0 || section >= asset_column_count) return {};
  const AssetColumn column = columnAt(section);
  const QString names[] = {tr("Asset ID"), tr("Name"),   tr("Department"), tr("In service"),
                           tr("Basis"),    tr("Method"), tr("Book value")};
  switch (role) {
    case Qt::DisplayRole:
      return names[section];
    case Qt::ToolTipRole:
      if (column != AssetColumn::book_value || list_.isEmpty()) return {};
      return tr("At the end of %1").arg(qtText(fiscalYearName(list_.fiscalYear())));
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (isAmount(column) ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return {};
  }
}

void AssetListModel::sort(int column, Qt::SortOrder order) {
  change([&](AssetList& list) {
    list.sort(column < 0 ? std::nullopt : std::optional(columnAt(column)),
              order == Qt::DescendingOrder);
  });
}

}  // namespace depcalc::desktop
