#include "desktop/importing/preview_model.h"

#include <algorithm>

#include "desktop/importing/import_captions.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

QColor mixed(const QColor& base, const QColor& with, double part) {
  const auto mix = [part](int a, int b) {
    return static_cast<int>(a * (1 - part) + b * part + 0.5);
  };
  return {mix(base.red(), with.red()), mix(base.green(), with.green()),
          mix(base.blue(), with.blue())};
}

bool isRight(AssetColumn column) {
  return column == AssetColumn::life || column == AssetColumn::basis ||
         column == AssetColumn::salvage || column == AssetColumn::capacity ||
         column == AssetColumn::proceeds;
}

}  // namespace

PreviewModel::PreviewModel(AssetImport& import, QObject* parent)
    : QAbstractTableModel(parent), import_(import), columns_(import.columns()) {}

void PreviewModel::show(RowFilter filter) {
  beginResetModel();
  order_ = import_.isDone() ? import_.inOrder(filter) : std::vector<std::uint32_t>();
  columns_ = import_.columns();
  endResetModel();
}

void PreviewModel::refresh() {
  if (!order_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void PreviewModel::setColours(const QColor& text, const QColor& base) {
  const bool dark = base.lightnessF() < text.lightnessF();
  problem_ = mixed(base, QColor(0xD0, 0x20, 0x30), dark ? 0.45 : 0.2);
  duplicate_ = mixed(base, QColor(0xE0, 0xA0, 0x10), dark ? 0.35 : 0.25);
  faint_ = mixed(text, base, 0.45);
}

QModelIndex PreviewModel::firstProblemIn(int row) const {
  const auto& problems = import_.row(rowAt(row)).problems;
  for (int column = first_text_column; column < columnCount(); ++column) {
    if (isFoundIn(problems, column)) return index(row, column);
  }
  return {};
}

int PreviewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int PreviewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : first_text_column + static_cast<int>(columns_.size());
}

QString PreviewModel::textAt(const QModelIndex& index) const {
  const std::size_t row = rowAt(index.row());
  if (index.column() == line_column) return QString::number(import_.fileRow(row).line);
  if (index.column() == remark_column) return remarkOn(import_, row);
  return qtText(std::string(import_.text(row, columnAt(index.column()))));
}

bool PreviewModel::isFoundIn(const std::vector<RowFinding>& findings, int column) const {
  return std::any_of(findings.begin(), findings.end(), [&](const RowFinding& finding) {
    if (column < first_text_column) return column == remark_column;
    return !finding.column || finding.column == columnAt(column);
  });
}

QVariant PreviewModel::background(const QModelIndex& index) const {
  const ImportRow& row = import_.row(rowAt(index.row()));
  if (row.isLeftOut()) return {};
  if (isFoundIn(row.problems, index.column())) return problem_;
  return isFoundIn(row.duplicates, index.column()) ? QVariant(duplicate_) : QVariant();
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = rowAt(index.row());
  const RowStatus status = import_.statusOf(row);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return textAt(index);
    case Qt::ToolTipRole:
      return index.column() == line_column ? QVariant() : toolTipText(remarkOn(import_, row));
    case Qt::CheckStateRole:
      if (index.column() != line_column) return {};
      return status == RowStatus::left_out || status == RowStatus::duplicate ? Qt::Unchecked
                                                                             : Qt::Checked;
    case Qt::AccessibleTextRole:
      return index.column() == line_column ? tr("Line %1").arg(textAt(index)) : textAt(index);
    case Qt::BackgroundRole:
      return background(index);
    case Qt::ForegroundRole:
      return (status == RowStatus::left_out || status == RowStatus::duplicate) &&
                     !background(index).isValid()
                 ? QVariant(faint_)
                 : QVariant();
    case Qt::TextAlignmentRole:
      return QVariant((index.column() >= first_text_column && isRight(columnAt(index.column()))
                           ? Qt::AlignRight
                           : Qt::AlignLeft) |
                      Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  if (section == line_column) return tr("Line");
  return section == remark_column ? tr("Remarks") : captionOf(columnAt(section));
}

Qt::ItemFlags PreviewModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags seen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == line_column) return seen | Qt::ItemIsUserCheckable;
  return index.column() == remark_column ? seen : seen | Qt::ItemIsEditable;
}

bool PreviewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const std::size_t row = rowAt(index.row());
  if (index.column() == line_column && role == Qt::CheckStateRole) {
    import_.take(row, value.toInt() != Qt::Unchecked);
  } else if (index.column() >= first_text_column && role == Qt::EditRole) {
    const std::string text = value.toString().toStdString();
    if (text == import_.text(row, columnAt(index.column()))) return false;
    import_.edit(row, columnAt(index.column()), text);
  } else {
    return false;
  }
  refresh();
  emit changed();
  return true;
}

}  // namespace depcalc::desktop
