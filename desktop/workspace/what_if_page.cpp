#include "desktop/workspace/what_if_page.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace depcalc::desktop {
namespace {

constexpr int row_margin = 8;  // pixels

/// What is missing before anything can be calculated.
bool isIncomplete(const InsightSubject& subject) {
  const SavedAsset& asset = subject.asset;
  return subject.isNothing() || asset.placed_in_service.isNone() || asset.basis == Currency() ||
         asset.life == 0;
}

}  // namespace

WhatIfPage::WhatIfPage(QWidget* parent)
    : InsightPage(parent),
      note_(new QLabel(this)),
      table_(new QTableView(this)),
      use_(new QPushButton(tr("Use These Va&lues"), this)) {
  note_->setWordWrap(true);
  note_->setTextFormat(Qt::PlainText);
  table_->setObjectName(QStringLiteral("WhatIfTable"));
  table_->setAccessibleName(tr("What if"));
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setFrameShape(QFrame::NoFrame);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(2 * fontMetrics().height() + row_margin);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->installEventFilter(this);
  use_->setObjectName(QStringLiteral("UseThese"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(note_);
  column->addWidget(table_, 1);
  column->addWidget(use_, 0, Qt::AlignLeft);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &WhatIfPage::enable);
  connect(table_, &QTableView::doubleClicked, this, &WhatIfPage::use);
  connect(use_, &QPushButton::clicked, this, &WhatIfPage::use);
  WhatIfPage::follow({});
}

/// The row that was chosen stays so where there still is one.
void WhatIfPage::follow(const InsightSubject& subject) {
  const int row = table_->currentIndex().row();
  const bool same_asset = subject.asset.number == subject_.asset.number;
  const bool incomplete = isIncomplete(subject);
  subject_ = subject;
  model_.setRows(incomplete ? std::vector<WhatIfRow>() : whatIfRows(subject.asset));
  table_->setVisible(!incomplete);
  use_->setVisible(!incomplete);
  note_->setText(incomplete
                     ? tr("Other conventions, useful lives and salvage values appear here when the "
                          "asset has a placed-in-service date, a useful life and a basis.")
                     : tr("What the first fiscal year takes, and below it the total."));
  if (same_asset && row >= 0 && row < model_.rowCount()) table_->selectRow(row);
  enable();
}

const WhatIfRow* WhatIfPage::chosen() const {
  const QModelIndex current = table_->currentIndex();
  return current.isValid() ? &model_.rows()[static_cast<std::size_t>(current.row())] : nullptr;
}

void WhatIfPage::enable() {
  const WhatIfRow* const row = chosen();
  use_->setEnabled(row != nullptr && row->changed != WhatIfField::none);
}

/// What follows may take the rows away.
void WhatIfPage::use() {
  const WhatIfRow* const row = chosen();
  if (row == nullptr || row->changed == WhatIfField::none) return;
  const InsightSubject subject = subject_;
  const WhatIfRow wanted = *row;
  emit used(subject, wanted);
}

bool WhatIfPage::eventFilter(QObject* watched, QEvent* event) {
  if (watched == table_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      use();
      return true;
    }
  }
  return InsightPage::eventFilter(watched, event);
}

}  // namespace depcalc::desktop
