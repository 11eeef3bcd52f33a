#include "desktop/workspace/what_if_model.h"

#include <QFont>

#include "desktop/widgets/text_block.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

constexpr int method_columns = static_cast<int>(scheduled_methods.size());

QString money(const std::optional<Currency>& amount) {
  return amount ? qtText(formatMoney(*amount)) : QStringLiteral("–");
}

const Method& methodOf(int column) {
  return scheduled_methods[static_cast<std::size_t>(column - 1)].method;
}

}  // namespace

void WhatIfModel::setRows(std::vector<WhatIfRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int WhatIfModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int WhatIfModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 1 + method_columns;
}

QString WhatIfModel::shown(const WhatIfRow& row, int column) const {
  if (column == 0) {
    const QString caption = qtText(whatIfCaption(row));
    // Conventions and lives leave the rate as it is.
    const bool other_rate = row.changed == WhatIfField::none || row.changed == WhatIfField::salvage;
    if (!other_rate || row.rate == Currency()) return caption;
    return caption + QChar('\n') + tr("%1 per unit").arg(qtText(formatRate(row.rate)));
  }
  const WhatIfFigures& figures = row.methods[static_cast<std::size_t>(column - 1)];
  return money(figures.first_year) + QChar('\n') + money(figures.total);
}

QString WhatIfModel::spoken(const WhatIfRow& row, int column) const {
  if (column == 0) return shown(row, column);
  const WhatIfFigures& figures = row.methods[static_cast<std::size_t>(column - 1)];
  return tr("%1: first year %2, total %3")
      .arg(qtText(methodOf(column).name), money(figures.first_year), money(figures.total));
}

QVariant WhatIfModel::data(const QModelIndex& index, int role) const {
  const WhatIfRow& row = rows_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return shown(row, index.column());
    case Qt::AccessibleTextRole:
      return spoken(row, index.column());
    case Qt::TextAlignmentRole:
      return static_cast<int>((index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight) |
                              Qt::AlignVCenter);
    case Qt::FontRole: {
      QFont font;
      font.setBold(row.changed == WhatIfField::none);
      return font;
    }
    default:
      return {};
  }
}

QVariant WhatIfModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>((section == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  }
  if (role == Qt::ToolTipRole && section > 0) {
    return qtText(methodOf(section).name);
  }
  if (role != Qt::DisplayRole) return {};
  if (section == 0) return tr("If it had");
  return qtText(methodOf(section).code);
}

}  // namespace depcalc::desktop
