// The captions of a grid that stay in sight while the page scrolls.
#pragma once

#include <QWidget>

#include "controls/grid.h"
#include "desktop/widgets/surface.h"

class QTableView;

namespace depcalc::desktop {

/// Lies over the cells of a grid where its first column, its first row or the corner of both would
/// be, had the page not scrolled them out of sight. A click is a click on the caption.
class CaptionStrip : public QWidget {
  Q_OBJECT

 public:
  enum class Part { column, row, corner };

  CaptionStrip(Part part, QTableView& view);

  /// `seen`: the part of the view that is to be seen, in the view's coordinates.
  void follow(const QRect& seen);

 signals:
  void clicked(int row, int column);
  void doubleClicked(int row, int column);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  /// The cell below a point of the strip, as if nothing had been scrolled.
  [[nodiscard]] QPoint inViewport(const QPoint& point) const;

  Part part_;
  QTableView& view_;
};

}  // namespace depcalc::desktop
