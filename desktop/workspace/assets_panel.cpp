#include "desktop/workspace/assets_panel.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/widgets/colours.h"
#include "desktop/widgets/text_block.h"
#include "desktop/workspace/panel_keys.h"

namespace depcalc::desktop {
namespace {

constexpr AssetColumn first_columns[] = {AssetColumn::id, AssetColumn::name,
                                         AssetColumn::book_value};

/// In characters, where the user has not made them wider.
constexpr int column_characters[asset_column_count] = {10, 18, 12, 11, 13, 8, 13};

bool movesTheChoice(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
         key == Qt::Key_PageDown;
}

}  // namespace

AssetsPanel::AssetsPanel(const Looks& looks, QWidget* parent)
    : QWidget(parent),
      model_(new AssetListModel(this)),
      search_(new QLineEdit(this)),
      hide_disposed_(new QCheckBox(tr("Hide disp&osed"), this)),
      table_(new QTableView(this)),
      totals_(new QLabel(this)) {
  setObjectName(QStringLiteral("AssetsPanel"));
  setAccessibleName(tr("Assets"));
  makeSearch();
  makeTable();
  totals_->setObjectName(QStringLiteral("AssetTotals"));
  totals_->setWordWrap(true);
  totals_->setTextFormat(Qt::PlainText);
  const int room = fontMetrics().averageCharWidth();
  totals_->setContentsMargins(room, room / 2, room, room / 2);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(makeChoices());
  column->addWidget(table_, 1);
  column->addWidget(totals_);
  setTabOrder(hide_disposed_, findChild<QToolButton*>(QStringLiteral("AssetColumns")));
  setTabOrder(findChild<QToolButton*>(QStringLiteral("AssetColumns")), table_);
  colourChoice();
  showColumns(looks.columns);
  hide_disposed_->setChecked(looks.hides_disposed);
  showTotals();
}

void AssetsPanel::makeSearch() {
  search_->setObjectName(QStringLiteral("AssetSearch"));
  search_->setAccessibleName(tr("Search the assets"));
  search_->setPlaceholderText(tr("Search ID, name, serial, department…"));
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    change([&](AssetList& list) { list.search(text.toStdString()); });
  });
  connect(hide_disposed_, &QCheckBox::toggled, this,
          [this](bool hide) { change([&](AssetList& list) { list.hideDisposed(hide); }); });
}

QWidget* AssetsPanel::makeChoices() {
  auto* const choices = new QWidget(this);
  auto* const columns = new QToolButton(choices);
  columns->setObjectName(QStringLiteral("AssetColumns"));
  columns->setText(tr("Columns"));
  columns->setAutoRaise(true);
  columns->setPopupMode(QToolButton::InstantPopup);
  columns->setFocusPolicy(Qt::TabFocus);
  columns_menu_ = new QMenu(columns);
  columns_menu_->setAccessibleName(columns->text());
  columns->setMenu(columns_menu_);
  hide_disposed_->setObjectName(QStringLiteral("HideDisposed"));
  const int room = fontMetrics().averageCharWidth();
  auto* const row = new QHBoxLayout;
  row->addWidget(hide_disposed_);
  row->addStretch();
  row->addWidget(columns);
  auto* const rows = new QVBoxLayout(choices);
  rows->setContentsMargins(room, room, room, room / 2);
  rows->setSpacing(room / 2);
  rows->addWidget(search_);
  rows->addLayout(row);
  return choices;
}

void AssetsPanel::makeTable() {
  table_->setObjectName(QStringLiteral("AssetList"));
  table_->setAccessibleName(tr("Assets"));
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setShowGrid(false);
  table_->setWordWrap(false);
  table_->setTabKeyNavigation(false);
  table_->setFrameShape(QFrame::NoFrame);
  table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->setCornerButtonEnabled(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  table_->installEventFilter(this);
  QHeaderView& header = *table_->horizontalHeader();
  header.setAccessibleName(tr("Columns"));
  header.setHighlightSections(false);
  header.setSortIndicatorClearable(true);
  header.setSortIndicator(-1, Qt::AscendingOrder);
  header.setSectionsMovable(true);
  header.setMinimumSectionSize(fontMetrics().averageCharWidth() * 7);
  header.setSectionResizeMode(static_cast<int>(AssetColumn::name), QHeaderView::Stretch);
  table_->setSortingEnabled(true);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &AssetsPanel::rowChosen);
  connect(table_, &QTableView::doubleClicked, this, &AssetsPanel::openCurrent);
  connect(model_, &QAbstractItemModel::modelReset, this, [this] {
    mark(marked_);
    showTotals();
  });
}

/// As they were left, else those that a narrow list has room for.
void AssetsPanel::showColumns(const QByteArray& columns) {
  QHeaderView& header = *table_->horizontalHeader();
  const int character = fontMetrics().averageCharWidth();
  for (int i = 0; i < asset_column_count; ++i) {
    header.resizeSection(i, column_characters[i] * character);
    const auto* const shown =
        std::find(std::begin(first_columns), std::end(first_columns), static_cast<AssetColumn>(i));
    header.setSectionHidden(i, shown == std::end(first_columns));
  }
  if (!columns.isEmpty()) header.restoreState(columns);
  fillColumnsMenu();
}

/// The ID stays: rows must be told apart.
void AssetsPanel::fillColumnsMenu() {
  QHeaderView& header = *table_->horizontalHeader();
  for (int i = 1; i < asset_column_count; ++i) {
    QAction* const action =
        columns_menu_->addAction(model_->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString());
    action->setCheckable(true);
    action->setChecked(!header.isSectionHidden(i));
    connect(action, &QAction::toggled, &header,
            [&header, i](bool on) { header.setSectionHidden(i, !on); });
  }
}

AssetsPanel::Looks AssetsPanel::looks() const {
  return {table_->horizontalHeader()->saveState(), hide_disposed_->isChecked()};
}

void AssetsPanel::change(const std::function<void(AssetList&)>& change) {
  const QScopedValueRollback silent(silent_, true);
  model_->change(change);
}

void AssetsPanel::showAssets(std::shared_ptr<const RegisterOfAssets> assets) {
  change([&](AssetList& list) { list.setAssets(std::move(assets)); });
}

void AssetsPanel::mark(std::int32_t number) {
  const QScopedValueRollback silent(silent_, true);
  marked_ = number;
  const auto row = number > 0 ? list().rowOf(number) : std::nullopt;
  if (!row) {
    table_->setCurrentIndex({});
    return;
  }
  const int at = static_cast<int>(*row);
  if (table_->currentIndex().row() == at) return;
  table_->selectRow(at);
  table_->scrollTo(model_->index(at, 0));
}

void AssetsPanel::startSearch() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

void AssetsPanel::showTotals() { totals_->setText(qtText(totalsLine(list().totals()))); }

void AssetsPanel::rowChosen() {
  const QModelIndex current = table_->currentIndex();
  if (silent_ || !current.isValid()) return;
  marked_ = model_->numberAt(current.row());
  emit chosen(marked_);
}

/// Of several none of which is chosen, the first is chosen only: nobody has seen yet which it is.
void AssetsPanel::openCurrent() {
  const bool seen = table_->currentIndex().isValid();
  if (!seen && list().count() == 0) return;
  if (!seen) table_->selectRow(0);
  if (seen || list().count() == 1) emit opened(marked_);
}

void AssetsPanel::clearOrLeave() {
  if (search_->text().isEmpty()) {
    emit left();
  } else {
    search_->clear();
  }
}

/// Enter and Escape mean the same everywhere here; the arrows move in the list from the search.
bool AssetsPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int key = static_cast<const QKeyEvent&>(*event).key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    openCurrent();
    return true;
  }
  if (watched == search_ && movesTheChoice(key)) {
    QCoreApplication::sendEvent(table_, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void AssetsPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return clearOrLeave();
  QWidget::keyPressEvent(event);
}

void AssetsPanel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) colourChoice();
  QWidget::changeEvent(event);
}

/// As what the calculator itself marks.
void AssetsPanel::colourChoice() {
  const Colours colours(palette());
  QPalette look = palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    look.setColor(group, QPalette::Highlight, colours.accent());
    look.setColor(group, QPalette::HighlightedText, colours.paper());
  }
  table_->setPalette(look);
}

bool AssetsPanel::focusNextPrevChild(bool next) { return moveKeysWithin(*this, next); }

}  // namespace depcalc::desktop
