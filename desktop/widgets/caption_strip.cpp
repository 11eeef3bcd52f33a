#include "desktop/widgets/caption_strip.h"

#include <QAbstractItemDelegate>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTableView>

namespace depcalc::desktop {

CaptionStrip::CaptionStrip(Part part, QTableView& view)
    : QWidget(view.viewport()), part_(part), view_(view) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  hide();
}

void CaptionStrip::follow(const QRect& seen) {
  const QSize captions(view_.columnWidth(0), view_.rowHeight(0));
  const bool column_gone = seen.left() > 0;
  const bool row_gone = seen.top() > 0;
  QRect place(QPoint(0, 0), view_.viewport()->size());
  if (part_ != Part::row) place.setWidth(captions.width());
  if (part_ != Part::column) place.setHeight(captions.height());
  if (part_ != Part::row) place.moveLeft(std::max(0, seen.left()));
  if (part_ != Part::column) place.moveTop(std::max(0, seen.top()));
  const bool needed = part_ == Part::column ? column_gone
                      : part_ == Part::row  ? row_gone
                                            : column_gone || row_gone;
  // Of a sliver of the table the captions would be all.
  const bool room = seen.width() > 2 * captions.width() && seen.height() > 2 * captions.height();
  setVisible(needed && room);
  setGeometry(place);
}

QPoint CaptionStrip::inViewport(const QPoint& point) const {
  QPoint there = mapToParent(point);
  if (part_ != Part::row) there.setX(point.x());
  if (part_ != Part::column) there.setY(point.y());
  return there;
}

void CaptionStrip::paintEvent(QPaintEvent* event) {
  const QRect area(inViewport(event->rect().topLeft()), event->rect().size());
  const QPoint shift = inViewport({0, 0});
  const auto last = [](int index, int count) { return index < 0 ? count - 1 : index; };
  const int bottom = last(view_.rowAt(area.bottom()), view_.model()->rowCount());
  const int right = last(view_.columnAt(area.right()), view_.model()->columnCount());
  QPainter painter(this);
  painter.translate(-shift);
  for (int row = std::max(0, view_.rowAt(area.top())); row <= bottom; ++row) {
    for (int column = std::max(0, view_.columnAt(area.left())); column <= right; ++column) {
      const QModelIndex cell = view_.model()->index(row, column);
      QStyleOptionViewItem option;
      option.rect = view_.visualRect(cell);
      view_.itemDelegate()->paint(&painter, option, cell);
    }
  }
}

void CaptionStrip::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = inViewport(event->position().toPoint());
  emit clicked(view_.rowAt(at.y()), view_.columnAt(at.x()));
}

void CaptionStrip::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = inViewport(event->position().toPoint());
  emit doubleClicked(view_.rowAt(at.y()), view_.columnAt(at.x()));
}

}  // namespace depcalc::desktop
