#include "desktop/importing/amounts_model.h"

#include <QFont>
#include <array>

#include "desktop/widgets/text_block.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

QString differenceOf(const ComparedAmount& amount) {
  if (!amount.differs()) return QStringLiteral("–");
  if (!amount.expected) return QObject::tr("not an amount");
  return qtText(formatMoney(*amount.expected - amount.calculated));
}

}  // namespace

void AmountsModel::show(std::vector<ComparedAmount> amounts) {
  beginResetModel();
  amounts_ = std::move(amounts);
  endResetModel();
}

QVariant AmountsModel::data(const QModelIndex& index, int role) const {
  const ComparedAmount& amount = amounts_[static_cast<std::size_t>(index.column())];
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::FontRole && amount.differs()) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role != Qt::DisplayRole) return {};
  const std::array<QString, 3> texts{
      amount.expected ? qtText(formatMoney(*amount.expected)) : qtText(amount.in_file),
      qtText(formatMoney(amount.calculated)), differenceOf(amount)};
  return texts.at(static_cast<std::size_t>(index.row()));
}

QVariant AmountsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Horizontal) {
    return tr("FY%1").arg(amounts_[static_cast<std::size_t>(section)].year);
  }
  const std::array<QString, 3> captions{tr("In the file"), tr("Calculated"), tr("Difference")};
  return captions.at(static_cast<std::size_t>(section));
}

}  // namespace depcalc::desktop
