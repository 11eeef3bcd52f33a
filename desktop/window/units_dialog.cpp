#include "desktop/window/units_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc::desktop {
namespace {

enum Column { year_column, units_column, amount_column, left_column, columns };

constexpr int most_rows_shown = 14;

QString unitsText(double units) { return qtText(numberToText(units)); }

}  // namespace

UnitsDialog::UnitsDialog(const SavedAsset& asset, int through, const QString& note, QWidget* parent)
    : QDialog(parent),
      asset_(asset),
      through_(through),
      beforehand_(note),
      units_(asset.units),
      table_(new QTableWidget(this)),
      note_(new QLabel(this)) {
  setWindowTitle(tr("Units Produced"));
  auto* const explanation = new QLabel(
      tr("%1: enter what the asset produced in each fiscal year. An empty year has no entry.")
          .arg(asset.id.empty() ? tr("Asset %1").arg(asset.number) : qtText(asset.id)),
      this);
  explanation->setTextFormat(Qt::PlainText);
  explanation->setWordWrap(true);
  note_->setObjectName(QStringLiteral("Note"));
  note_->setWordWrap(true);
  note_->setTextFormat(Qt::PlainText);
  note_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  save_ = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
  // Enter belongs to the cell.
  save_->setAutoDefault(false);
  buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  addGuideHelp(*this, guide::units);
  dropButtonIcons(*this);
  makeTable();
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(explanation);
  layout->addWidget(table_, 1);
  layout->addWidget(note_);
  layout->addWidget(buttons);
  look();
  const int across = fontMetrics().averageCharWidth() * 72;
  resize(across, layout->totalHeightForWidth(across));
}

void UnitsDialog::makeTable() {
  const std::vector<UnitsRow> rows = unitsRows(asset_, units_, through_);
  table_->setObjectName(QStringLiteral("Units"));
  table_->setAccessibleName(tr("Units produced by fiscal year"));
  table_->setRowCount(static_cast<int>(rows.size()));
  table_->setColumnCount(columns);
  table_->setHorizontalHeaderLabels(
      {tr("Fiscal year"), tr("Units"), tr("Depreciation"), tr("Capacity left")});
  table_->verticalHeader()->hide();
  table_->setTabKeyNavigation(false);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::AllEditTriggers);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table_->horizontalHeader()->setHighlightSections(false);
  const int row_height = fontMetrics().height() * 7 / 4;
  table_->verticalHeader()->setDefaultSectionSize(row_height);
  for (int row = 0; row < table_->rowCount(); ++row) {
    const UnitsRow& each = rows[static_cast<std::size_t>(row)];
    setCell(row, year_column, QStringLiteral("FY%1").arg(each.year));
    setCell(row, units_column, each.units ? unitsText(*each.units) : QString());
  }
  table_->setMinimumHeight(row_height * (std::min(table_->rowCount(), most_rows_shown) + 2));
  table_->setCurrentCell(0, units_column);
  connect(table_, &QTableWidget::cellChanged, this, [this] { look(); });
}

void UnitsDialog::setCell(int row, int column, const QString& text) {
  QTableWidgetItem* item = table_->item(row, column);
  if (item == nullptr) {
    item = new QTableWidgetItem;
    const bool number = column != year_column;
    item->setTextAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (column != units_column) item->setFlags(Qt::ItemIsEnabled);
    table_->setItem(row, column, item);
  }
  item->setText(text);
}

/// What is entered now, and what it comes to. The first text that is none is told.
void UnitsDialog::look() {
  const QSignalBlocker quiet(table_);
  const int first = unitsRows(asset_, {}, through_).front().year;
  UnitsByYear units;
  QString problem;
  for (int row = 0; row < table_->rowCount(); ++row) {
    const QString text = table_->item(row, units_column)->text().trimmed();
    if (text.isEmpty()) continue;
    const auto entered = unitsFrom(text.toStdString());
    if (const auto* refusal = std::get_if<std::string>(&entered)) {
      if (problem.isEmpty()) problem = tr("FY%1: %2").arg(first + row).arg(qtText(*refusal));
    } else {
      units[first + row] = std::get<double>(entered);
    }
  }
  units_ = units;
  int row = 0;
  for (const UnitsRow& each : unitsRows(asset_, units, through_)) {
    if (row == table_->rowCount()) break;
    setCell(row, amount_column, each.units ? qtText(formatMoney(each.amount)) : QString());
    setCell(row, left_column, unitsText(each.left));
    ++row;
  }
  const bool beyond = !units.empty() && unitsRows(asset_, units, through_).back().left < 0;
  save_->setEnabled(problem.isEmpty());
  note_->setText(!problem.isEmpty() ? problem
                 : beyond ? tr("These are more units than the asset's production capacity.")
                          : beforehand_);
}

}  // namespace depcalc::desktop
