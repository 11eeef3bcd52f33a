#include "desktop/widgets/grid_widget.h"

#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <optional>

#include "controls/copied_cells.h"
#include "desktop/widgets/arrow_keys.h"
#include "desktop/widgets/cell_clipboard.h"
#include "desktop/widgets/grid_painter.h"
#include "desktop/widgets/grid_sections.h"
#include "desktop/widgets/input_style.h"

namespace depcalc::desktop {
namespace {

/// What the parents of `widget` leave of it, whatever lies over it.
QRect partInSight(const QWidget& widget) {
  QRect seen = widget.rect();
  QPoint corner;
  for (const QWidget* at = &widget; !at->isWindow() && at->parentWidget() != nullptr;
       at = at->parentWidget()) {
    corner += at->pos();
    seen &= at->parentWidget()->rect().translated(-corner);
  }
  return seen;
}

}  // namespace

GridWidget::GridWidget(Grid& grid, Surface& surface, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      table_(grid),
      binding_(*this, grid, surface, [this](Aspect aspect) { apply(aspect); }) {
  prepareSections(*horizontalHeader());
  prepareSections(*verticalHeader());
  setFrameShape(QFrame::Box);
  setShowGrid(false);
  setWordWrap(true);
  setTabKeyNavigation(false);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setAutoScroll(false);
  setItemDelegate(new GridPainter(grid, surface, this));
  setModel(&table_);
  // The corner lies over both others.
  for (const auto part :
       {CaptionStrip::Part::column, CaptionStrip::Part::row, CaptionStrip::Part::corner}) {
    captions_ << new CaptionStrip(part, *this);
    connect(captions_.back(), &CaptionStrip::clicked, this, &GridWidget::clickCell);
    connect(captions_.back(), &CaptionStrip::doubleClicked, this, &GridWidget::openCell);
  }
  connect(&surface, &Surface::scrolled, this, &GridWidget::keepCaptionsInSight);
  apply(Aspect::colours);
  showStructure();
}

void GridWidget::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::structure:
      table_.restructure();
      showStructure();
      break;
    case Aspect::font:
      showStructure();
      break;
    case Aspect::cells:
      viewport()->update();
      for (CaptionStrip* strip : captions_) strip->update();
      break;
    case Aspect::current:
      showCurrent();
      break;
    case Aspect::scroll:
      scrollTo(table_.index(grid_.topRow(), grid_.leftColumn()), PositionAtTop);
      break;
    case Aspect::colours: {
      QPalette colours = inputPalette(grid_, binding_.colours());
      // The frame is drawn in the colour of window texts.
      colours.setColor(QPalette::WindowText, binding_.colours().gridLine());
      setPalette(colours);
      break;
    }
    default:
      break;
  }
}

void GridWidget::showStructure() {
  pointed_.reset();
  const Scale& scale = binding_.scale();
  sizeSections(*horizontalHeader(), scale, grid_.columns(),
               [this](int column) { return grid_.columnWidth(column); });
  sizeSections(*verticalHeader(), scale, grid_.rows(),
               [this](int row) { return grid_.rowHeight(row); });
  showScrollBars();
  showCurrent();
  viewport()->update();
}

/// The model sizes a grid to its cells and leaves two pixels for the frame, which at a small zoom
/// are less than the frame takes. That is no reason to scroll: a bar would hide a whole row.
void GridWidget::showScrollBars() {
  const bool wide = horizontalHeader()->length() > width();
  const bool high = verticalHeader()->length() > height();
  setHorizontalScrollBarPolicy(wide ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(high ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  updateGeometries();
}

void GridWidget::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  showScrollBars();
  keepCaptionsInSight();
}

/// Where the whole of the grid is larger than the page; one of only a few cells has no captions.
void GridWidget::keepCaptionsInSight() {
  if (grid_.rows() < 2 || grid_.columns() < 2) return;
  const QRect seen = partInSight(*viewport());
  for (CaptionStrip* strip : captions_) strip->follow(seen);
}

void GridWidget::repaintColumn(int column) {
  const int left = columnViewportPosition(column);
  viewport()->update(left - 2, 0, columnWidth(column) + 4, viewport()->height());
}

void GridWidget::showCurrent() {
  if (grid_.rows() == 0 || grid_.columns() == 0) return;
  const QModelIndex current = table_.index(grid_.row(), grid_.column());
  repaintColumn(shown_column_);
  shown_column_ = grid_.column();
  repaintColumn(shown_column_);
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  if (hasFocus()) revealCurrent();
}

/// In sight and not below the captions.
void GridWidget::revealCurrent() {
  if (grid_.rows() == 0 || grid_.columns() == 0) return;
  const QModelIndex current = table_.index(grid_.row(), grid_.column());
  scrollTo(current);
  const int left = current.column() > 0 ? columnWidth(0) : 0;
  const int top = current.row() > 0 ? rowHeight(0) : 0;
  emit binding_.surface().attention(viewport(), visualRect(current).adjusted(-left, -top, 0, 0));
}

GridWidget::Cell GridWidget::neighbour(const Cell& cell, Direction direction) {
  const int down = direction == Direction::down ? 1 : direction == Direction::up ? -1 : 0;
  const int right = direction == Direction::right ? 1 : direction == Direction::left ? -1 : 0;
  return {cell.row + down, cell.column + right};
}

bool GridWidget::isInside(const Cell& cell) const {
  return cell.row >= 0 && cell.row < grid_.rows() && cell.column >= 0 &&
         cell.column < grid_.columns();
}

void GridWidget::clickCell(int row, int column) {
  const Cell cell{row, column};
  if (!isInside(cell)) return;
  binding_.surface().act([&](User& user) { user.clickCell(grid_, row, column); });
  keeps_current_ = current() == cell;
  point(cell);
}

/// The cell that the user has gone to, which need not be the current one.
void GridWidget::point(const Cell& cell) {
  pointed_ = cell;
  emit binding_.surface().cellPointed(grid_, cell.row, cell.column);
}

/// The comparison takes its current cell back to the chosen method with every click; there the
/// arrows lead on from the cell that they led to.
void GridWidget::goOn(Direction direction) {
  const Cell from = current();
  binding_.surface().act([&](User& user) { user.arrow(direction); });
  if (const Cell next = neighbour(from, direction); isInside(next)) {
    keeps_current_ = current() == next;
  }
  const Cell at = keeps_current_ ? current() : neighbour(pointed_.value_or(from), direction);
  if (isInside(at)) point(at);
}

void GridWidget::openCell(int row, int column) {
  clickCell(row, column);
  const bool current = row == grid_.row() && column == grid_.column();
  if (current && grid_.hasFocus()) emit binding_.surface().opened(grid_);
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
  const std::optional<Direction> direction = directionOf(event->key());
  if (direction.has_value()) {
    goOn(*direction);
    return;
  }
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      openCell(grid_.row(), grid_.column());
      break;
    case Qt::Key_Space:
      clickCell(grid_.row(), grid_.column());
      break;
    case Qt::Key_Home:
      clickCell(grid_.row(), grid_.columns() > 1 ? 1 : 0);
      break;
    case Qt::Key_End:
      clickCell(grid_.row(), grid_.columns() - 1);
      break;
    default:
      event->ignore();
  }
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton) return;
  if (at.isValid()) {
    clickCell(at.row(), at.column());
  } else {
    binding_.surface().act([this](User& user) { user.moveFocus(grid_); });
  }
  binding_.takeFocusBack();
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && at.isValid()) openCell(at.row(), at.column());
}

/// Where a menu opens: at the pointer, whose cell becomes the current one, or, by its key, below
/// the current cell.
QPoint GridWidget::menuPlace(const QContextMenuEvent& event) {
  if (event.reason() != QContextMenuEvent::Mouse) {
    const QRect cell = visualRect(table_.index(grid_.row(), grid_.column()));
    return viewport()->mapToGlobal(cell.bottomLeft());
  }
  const bool on_cells = std::none_of(captions_.begin(), captions_.end(), [&](const auto* strip) {
    return strip->isVisible() && strip->geometry().contains(event.pos());
  });
  const QModelIndex at = indexAt(event.pos());
  if (on_cells && at.isValid()) clickCell(at.row(), at.column());
  return event.globalPos();
}

void GridWidget::contextMenuEvent(QContextMenuEvent* event) {
  const QPoint place = menuPlace(*event);
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("GridMenu"));
  menu.setAccessibleName(accessibleName());
  QAction* const marked = menu.addAction(tr("&Copy"));
  QAction* const whole = menu.addAction(tr("Copy &Whole Table"));
  const QAction* const chosen = menu.exec(place);
  if (chosen == marked) copyCells(markedColumn(grid_));
  if (chosen == whole) copyCells(wholeGrid(grid_));
}

void GridWidget::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  showCurrent();
}

void GridWidget::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  repaintColumn(grid_.column());
}

}  // namespace depcalc::desktop
