#include "desktop/widgets/grid_painter.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "controls/looks.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

int qtAlignment(CellAlignment alignment) {
  constexpr std::array verticals = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
  constexpr std::array horizontals = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
  const auto number = static_cast<std::size_t>(alignment);
  const Qt::Alignment flags = horizontals.at(number / 3) | verticals.at(number % 3);
  return static_cast<int>(flags.toInt());
}

}  // namespace

void GridPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const int row = index.row();
  const int column = index.column();
  if (row >= grid_.rows() || column >= grid_.columns()) return;
  painter->fillRect(option.rect, surface_.colours().of(looks::cellGround(grid_, row, column)));
  drawText(*painter, option.rect, row, column);
  drawLines(*painter, option.rect, row, column, option.state.testFlag(QStyle::State_HasFocus));
}

/// A text too large for its cell is drawn smaller, then with words broken, and at last from its
/// beginning.
void GridPainter::drawText(QPainter& painter, const QRect& cell, int row, int column) const {
  const QString text = qtText(grid_.text(row, column));
  if (text.isEmpty()) return;
  const int margin = std::max(2, surface_.scale().pixels(looks::cell_margin));
  const QRect room = cell.adjusted(margin, 1, -margin, -1);
  const int alignment = qtAlignment(grid_.alignment(row, column));
  const CellKind kind = grid_.kind(row, column);
  const int wrap = isAmount(kind) ? Qt::TextSingleLine : Qt::TextWordWrap;
  painter.save();
  painter.setClipRect(cell);
  painter.setPen(surface_.colours().text());
  const auto fits = [&](int flags) {
    for (const double part : looks::cell_parts) {
      painter.setFont(qtFont({looks::cell_points * part, isBold(kind)}, surface_.scale()));
      const QSize needed = painter.boundingRect(room, flags, text).size();
      if (needed.height() <= room.height() && needed.width() <= room.width()) return true;
    }
    return false;
  };
  if (fits(alignment | wrap)) {
    painter.drawText(room, alignment | wrap, text);
  } else {
    const int broken = alignment | Qt::TextWordWrap | Qt::TextWrapAnywhere;
    const bool whole = fits(broken);
    painter.drawText(room, whole ? broken : (broken & ~Qt::AlignVertical_Mask) | Qt::AlignTop,
                     text);
  }
  painter.restore();
}

void GridPainter::drawLines(QPainter& painter, const QRect& cell, int row, int column,
                            bool focused) const {
  const Colours& colours = surface_.colours();
  const int line = 1;
  painter.fillRect(cell.left(), cell.bottom(), cell.width(), line, colours.gridLine());
  painter.fillRect(cell.right(), cell.top(), line, cell.height(), colours.gridLine());
  if (looks::isMarkedColumn(grid_, column)) {
    painter.fillRect(cell.left(), cell.top(), 2, cell.height(), colours.accent());
    painter.fillRect(cell.right() - 1, cell.top(), 2, cell.height(), colours.accent());
  }
  if (!focused || row != grid_.row() || column != grid_.column()) return;
  painter.setPen(QPen(colours.focusRing(), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(cell).adjusted(1, 1, -1, -1));
}

}  // namespace depcalc::desktop
