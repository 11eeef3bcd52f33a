#include "desktop/window/report_kind_painter.h"

#include <QPainter>
#include <QWidget>

#include "desktop/widgets/colours.h"

namespace depcalc::desktop {
namespace {

constexpr int beside = 16;  // pixels
constexpr int above = 8;    // pixels
constexpr double smaller = 0.86;

QFont smallFont(const QFont& font) {
  QFont small = font;
  small.setPointSizeF(font.pointSizeF() * smaller);
  return small;
}

QRect roomIn(const QRect& item) { return item.adjusted(beside, above, -beside, -above); }

/// A selected item is dark on a light desktop and light on a dark one.
QColor textOn(const Colours& colours, bool selected) {
  if (!selected) return colours.text();
  return colours.dark() ? QColor(20, 20, 20) : QColor(Qt::white);
}

}  // namespace

void ReportKindPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  const Colours colours(option.palette);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter->save();
  if (selected) painter->fillRect(option.rect, colours.accent());
  painter->setPen(textOn(colours, selected));
  QRect room = roomIn(option.rect);
  painter->setFont(option.font);
  painter->drawText(room, Qt::AlignLeft | Qt::AlignTop, index.data().toString());
  room.setTop(room.top() + option.fontMetrics.height());
  painter->setFont(smallFont(option.font));
  painter->drawText(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                    index.data(Qt::UserRole).toString());
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter->setPen(QPen(colours.focusRing(), 2));
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

QSize ReportKindPainter::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  const auto* const list = qobject_cast<const QWidget*>(option.widget);
  const int width = list == nullptr ? option.rect.width() : list->width() - 4;
  const QFontMetrics small(smallFont(option.font));
  const QRect line =
      small.boundingRect(QRect(0, 0, width - 2 * beside, 1000), Qt::AlignLeft | Qt::TextWordWrap,
                         index.data(Qt::UserRole).toString());
  return {width, 2 * above + option.fontMetrics.height() + line.height()};
}

}  // namespace depcalc::desktop
