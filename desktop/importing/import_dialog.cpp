#include "desktop/importing/import_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/guide/guide_pages.h"
#include "desktop/importing/amounts_part.h"
#include "desktop/importing/columns_model.h"
#include "desktop/importing/import_captions.h"
#include "desktop/importing/import_options.h"
#include "desktop/importing/import_table.h"
#include "desktop/importing/preview_model.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

constexpr int in_a_thousand = 1000;

}  // namespace

ImportDialog::ImportDialog(AssetImport& import, const QString& file, QWidget* parent)
    : QDialog(parent),
      import_(import),
      options_(new ImportOptions(import, this)),
      columns_(new ColumnsModel(import, this)),
      preview_(new PreviewModel(import, this)) {
  setWindowTitle(tr("Import %1").arg(file));
  auto* const parts = new QSplitter(this);
  parts->addWidget(makeColumns());
  parts->addWidget(makePreview());
  parts->setStretchFactor(1, 1);
  parts->setChildrenCollapsible(false);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(options_);
  layout->addWidget(parts, 1);
  addNotes(*layout);
  connect(options_, &ImportOptions::changed, this, &ImportDialog::begin);
  connect(columns_, &ColumnsModel::chosen, this, &ImportDialog::begin);
  connect(preview_, &PreviewModel::changed, this, &ImportDialog::showState);
  work_.setInterval(0);
  connect(&work_, &QTimer::timeout, this, &ImportDialog::goOn);
  colour();
  const int character = fontMetrics().averageCharWidth();
  parts->setSizes({character * 44, character * 116});
  const QSize room = screen()->availableSize() - QSize(character * 4, character * 8);
  resize(QSize(character * 165, fontMetrics().lineSpacing() * 46).boundedTo(room));
  begin();
}

QWidget* ImportDialog::makeColumns() {
  auto* const part = new QWidget(this);
  auto* const layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel(tr("&Columns of the file"), part);
  columns_view_ = makeImportTable(*columns_, "Columns", tr("Columns of the file"), part);
  columns_view_->setItemDelegateForColumn(ColumnsModel::use_column,
                                          new UseDelegate(*columns_, columns_view_));
  columns_view_->setEditTriggers(QAbstractItemView::EditKeyPressed |
                                 QAbstractItemView::AnyKeyPressed);
  connect(columns_view_, &QTableView::clicked, columns_view_,
          qOverload<const QModelIndex&>(&QTableView::edit));
  columns_view_->verticalHeader()->hide();
  QHeaderView& header = *columns_view_->horizontalHeader();
  header.setSectionResizeMode(ColumnsModel::name_column, QHeaderView::Stretch);
  header.setSectionResizeMode(ColumnsModel::use_column, QHeaderView::Fixed);
  header.resizeSection(ColumnsModel::use_column, fontMetrics().averageCharWidth() * 22);
  label->setBuddy(columns_view_);
  layout->addWidget(label);
  layout->addWidget(columns_view_);
  return part;
}

QWidget* ImportDialog::makePreview() {
  auto* const part = new QWidget(this);
  auto* const layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel(tr("&Rows of the file"), part);
  auto* const filter_label = new QLabel(tr("S&how"), part);
  filter_ = new QComboBox(part);
  filter_->setObjectName(QStringLiteral("Filter"));
  filter_->setAccessibleName(tr("Rows shown"));
  filter_->addItems(
      {tr("All rows"), tr("Problems only"), tr("Duplicates only"), tr("Differing amounts only")});
  filter_label->setBuddy(filter_);
  duplicates_ = new QCheckBox(tr("&Leave out duplicates"), part);
  duplicates_->setObjectName(QStringLiteral("Duplicates"));
  duplicates_->setChecked(import_.leavesOutDuplicates());
  preview_view_ = makeImportTable(*preview_, "Rows", tr("Rows of the file"), part);
  preview_view_->verticalHeader()->hide();
  preview_view_->setEditTriggers(QAbstractItemView::DoubleClicked |
                                 QAbstractItemView::EditKeyPressed |
                                 QAbstractItemView::AnyKeyPressed);
  label->setBuddy(preview_view_);
  auto* const top = new QHBoxLayout;
  top->addWidget(label);
  top->addStretch(1);
  top->addWidget(duplicates_);
  top->addSpacing(fontMetrics().averageCharWidth() * 2);
  top->addWidget(filter_label);
  top->addWidget(filter_);
  layout->addLayout(top);
  remark_ = new QLabel(part);
  remark_->setObjectName(QStringLiteral("Remark"));
  remark_->setTextFormat(Qt::PlainText);
  remark_->setWordWrap(true);
  layout->addWidget(preview_view_, 1);
  layout->addWidget(remark_);
  amounts_ = new AmountsPart(part);
  layout->addWidget(amounts_);
  connect(filter_, &QComboBox::activated, this, &ImportDialog::showRows);
  connect(duplicates_, &QCheckBox::toggled, this, [this](bool on) {
    import_.leaveOutDuplicates(on);
    preview_->refresh();
    showState();
  });
  connect(preview_view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &ImportDialog::showRow);
  return part;
}

void ImportDialog::addNotes(QVBoxLayout& layout) {
  summary_ = new QLabel(this);
  note_ = new QLabel(this);
  progress_ = new QProgressBar(this);
  summary_->setObjectName(QStringLiteral("Summary"));
  summary_->setTextFormat(Qt::PlainText);
  note_->setObjectName(QStringLiteral("Note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  progress_->setAccessibleName(tr("Reading the file"));
  progress_->setRange(0, in_a_thousand);
  progress_->setTextVisible(false);
  progress_->setMaximumWidth(fontMetrics().averageCharWidth() * 30);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  accept_ = buttons->addButton(tr("&Import"), QDialogButtonBox::AcceptRole);
  // Enter belongs to the cells.
  accept_->setAutoDefault(false);
  buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  addGuideHelp(*this, guide::importing);
  dropButtonIcons(*this);
  QFont bold = summary_->font();
  bold.setBold(true);
  summary_->setFont(bold);
  auto* const state = new QHBoxLayout;
  state->addWidget(summary_, 1);
  state->addWidget(progress_);
  auto* const bottom = new QHBoxLayout;
  bottom->addWidget(note_, 1);
  bottom->addWidget(buttons);
  layout.addLayout(state);
  layout.addLayout(bottom);
}

void ImportDialog::begin() {
  columns_->show();
  preview_->show(RowFilter::all);
  amounts_->showAmounts({});
  showState();
  work_.start();
}

/// As much as nobody notices.
void ImportDialog::goOn() {
  constexpr std::size_t rows = 200;
  constexpr int most_milliseconds = 12;
  QElapsedTimer time;
  time.start();
  bool more = true;
  while (more && time.elapsed() < most_milliseconds) more = import_.goOn(rows);
  if (!more) end();
  progress_->setValue(static_cast<int>(import_.done() * in_a_thousand));
}

void ImportDialog::end() {
  work_.stop();
  options_->refresh();
  columns_->show();
  showRows();
  goToFirstProblem();
  preview_view_->setFocus();
  amounts_->setVisible(import_.hasAmounts());
}

void ImportDialog::showRows() {
  preview_->show(static_cast<RowFilter>(filter_->currentIndex()));
  const int character = fontMetrics().averageCharWidth();
  QHeaderView& header = *preview_view_->horizontalHeader();
  // Of the rows in sight alone, as a register's worth of them takes its time.
  header.setResizeContentsPrecision(0);
  preview_view_->resizeColumnsToContents();
  for (int column = 0; column < preview_->columnCount(); ++column) {
    const bool remark = column == PreviewModel::remark_column;
    header.resizeSection(column, std::clamp(header.sectionSize(column) + character, character * 8,
                                            character * (remark ? 44 : 30)));
  }
  showState();
}

void ImportDialog::showState() {
  const bool done = import_.isDone();
  const auto obstacle = import_.obstacle();
  summary_->setText(done ? qtText(import_.summary()) : tr("Reading the file…"));
  const std::size_t unreadable = import_.unreadableCharacters();
  note_->setText(!done      ? QString()
                 : obstacle ? qtText(*obstacle)
                 : unreadable > 0
                     ? tr("%L1 characters cannot be read in this encoding. Please try another one.")
                           .arg(unreadable)
                     : tr("All of them are imported, or none if anything goes wrong."));
  progress_->setVisible(!done);
  accept_->setEnabled(done && !obstacle);
  const auto ready = static_cast<qulonglong>(import_.counts().ready);
  accept_->setText(!done || ready == 0 ? tr("&Import")
                   : ready == 1        ? tr("&Import 1 Asset")
                                       : tr("&Import %L1 Assets").arg(ready));
  showRow();
}

void ImportDialog::showRow() {
  const QModelIndex current = preview_view_->currentIndex();
  const bool shows = import_.isDone() && current.isValid();
  const std::size_t row = shows ? preview_->rowAt(current.row()) : 0;
  remark_->setText(
      shows ? tr("Line %1: %2").arg(import_.fileRow(row).line).arg(remarkOn(import_, row))
            : QString());
  amounts_->showAmounts(shows && import_.hasAmounts() ? import_.amountsOf(row)
                                                      : std::vector<ComparedAmount>());
}

void ImportDialog::goToFirstProblem() {
  if (preview_->rowCount() == 0) return;
  const QModelIndex problem = preview_->firstProblemIn(0);
  preview_view_->setCurrentIndex(
      problem.isValid() ? problem : preview_->index(0, PreviewModel::remark_column));
  // What is wrong stands at the left, and the cell comes into sight when it is edited.
  preview_view_->horizontalScrollBar()->setValue(0);
}

void ImportDialog::colour() {
  preview_->setColours(palette().color(QPalette::Text), palette().color(QPalette::Base));
}

void ImportDialog::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && preview_view_ != nullptr) {
    colour();
    preview_->refresh();
  }
  QDialog::changeEvent(event);
}

}  // namespace depcalc::desktop
