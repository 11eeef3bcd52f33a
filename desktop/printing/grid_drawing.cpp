#include "desktop/printing/grid_drawing.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <algorithm>

#include "controls/looks.h"
#include "desktop/printing/twip_font.h"

namespace depcalc::desktop {
namespace {

using namespace looks::printed;

QColor coloured(Colour colour) { return {colour.red(), colour.green(), colour.blue()}; }

/// Where `size` begins in `room`; `part` is 0 for the start, 1 for the middle, 2 for the end.
double placed(int part, double room, double size) { return (room - size) * part / 2; }

int horizontal(CellAlignment alignment) { return static_cast<int>(alignment) / 3; }
int vertical(CellAlignment alignment) { return static_cast<int>(alignment) % 3; }

/// Breaks `layout` into lines of `width` and returns their height.
double layOut(QTextLayout& layout, double width) {
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

double widestLine(const QTextLayout& layout) {
  double widest = 0;
  for (int i = 0; i < layout.lineCount(); ++i) {
    widest = std::max(widest, layout.lineAt(i).naturalTextWidth());
  }
  return widest;
}

class CellDrawing {
 public:
  CellDrawing(QPainter& painter, const QFont& family, bool bold)
      : painter_(painter),
        family_(family),
        bold_(bold),
        usual_(twipFont(family, cell_points.front(), bold)),
        metrics_(usual_) {}

  void draw(const QRectF& room, const GridPicture::Cell& cell) const {
    const QString text = QString::fromStdString(cell.text);
    const double width = metrics_.horizontalAdvance(text);
    if (width > room.width() || text.contains(u'\n')) {
      drawBroken(room, cell, text);
      return;
    }
    const double x = placed(horizontal(cell.alignment), room.width(), width);
    const double y = placed(vertical(cell.alignment), room.height(), metrics_.height());
    painter_.setFont(usual_);
    painter_.drawText(room.topLeft() + QPointF(x, y + metrics_.ascent()), text);
  }

 private:
  void drawBroken(const QRectF& room, const GridPicture::Cell& cell, const QString& text) const {
    QTextLayout layout(text);
    // A smaller size rather than a broken word, a broken word rather than a lost line. An amount
    // must not be broken behind a thousands separator.
    double height = layOutFitting(
        layout, isAmount(cell.kind) ? QTextOption::ManualWrap : QTextOption::WordWrap, room);
    if (height > room.height() || widestLine(layout) > room.width()) {
      height = layOutFitting(layout, QTextOption::WrapAtWordBoundaryOrAnywhere, room);
    }
    for (int i = 0; i < layout.lineCount(); ++i) {
      QTextLine line = layout.lineAt(i);
      const double spare =
          placed(horizontal(cell.alignment), room.width(), line.naturalTextWidth());
      line.setPosition({spare, line.y()});
    }
    const double top = std::max(0.0, placed(vertical(cell.alignment), room.height(), height));
    painter_.save();
    if (height > room.height()) painter_.setClipRect(room);
    layout.draw(&painter_, room.topLeft() + QPointF(0, top));
    painter_.restore();
  }

  /// In the largest size that fits, else the smallest. Returns the height.
  double layOutFitting(QTextLayout& layout, QTextOption::WrapMode mode, const QRectF& room) const {
    QTextOption option;
    option.setWrapMode(mode);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    double height = 0;
    for (const double points : cell_points) {
      layout.setFont(twipFont(family_, points, bold_));
      height = layOut(layout, room.width());
      if (height <= room.height() && widestLine(layout) <= room.width()) break;
    }
    return height;
  }

  QPainter& painter_;
  const QFont& family_;
  bool bold_;
  QFont usual_;
  QFontMetricsF metrics_;
};

/// Where the lines between the cells stand, both outer edges included.
std::vector<double> edges(double start, const std::vector<int>& sizes) {
  std::vector<double> positions = {start};
  for (const int size : sizes) positions.push_back(positions.back() + size);
  return positions;
}

class GridDrawing {
 public:
  GridDrawing(QPainter& painter, const GridPicture& picture, int x, int y)
      : painter_(painter),
        picture_(picture),
        across_(edges(x, picture.column_widths)),
        down_(edges(y, picture.row_heights)) {}

  void draw(const QFont& family) const {
    const CellDrawing plain(painter_, family, false);
    const CellDrawing bold(painter_, family, true);
    fillCaptions();
    drawLines();
    painter_.setPen(Qt::black);
    forEachCell([&](const QRectF& area, const GridPicture::Cell& cell) {
      if (cell.text.empty()) return;
      const QRectF room = area.adjusted(margin_beside, margin_above, -margin_beside, -margin_above);
      (isBold(cell.kind) ? bold : plain).draw(room, cell);
    });
  }

 private:
  template <typename Use>
  void forEachCell(Use&& use) const {
    for (std::size_t row = 0; row < picture_.rows.size(); ++row) {
      for (std::size_t column = 0; column < picture_.columns.size(); ++column) {
        use(QRectF(QPointF(across_[column], down_[row]),
                   QPointF(across_[column + 1], down_[row + 1])),
            picture_.cell(row, column));
      }
    }
  }

  void fillCaptions() const {
    forEachCell([this](const QRectF& area, const GridPicture::Cell& cell) {
      if (isBold(cell.kind)) painter_.fillRect(area, coloured(looks::caption));
    });
  }

  void drawLines() const {
    const QRectF whole(QPointF(across_.front(), down_.front()),
                       QPointF(across_.back(), down_.back()));
    painter_.setPen(QPen(coloured(looks::printed::line), inner_line));
    for (const double y : down_) painter_.drawLine(QLineF(whole.left(), y, whole.right(), y));
    for (const double x : across_) painter_.drawLine(QLineF(x, whole.top(), x, whole.bottom()));
    painter_.setPen(
        QPen(coloured(looks::accent), outer_line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(whole);
  }

  QPainter& painter_;
  const GridPicture& picture_;
  std::vector<double> across_;
  std::vector<double> down_;
};

}  // namespace

void drawGrid(QPainter& painter, const GridPicture& picture, int x, int y, const QFont& family) {
  if (picture.cells.empty()) return;
  painter.save();
  GridDrawing(painter, picture, x, y).draw(family);
  painter.restore();
}

}  // namespace depcalc::desktop
