// The page of the host's window that shows the calculator.
#pragma once

#include <QScrollArea>

#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// Scrolls around the outermost control of the surface's stage. Takes the keys while no control
/// has the focus.
class Page : public QScrollArea {
  Q_OBJECT

 public:
  explicit Page(QWidget* parent = nullptr);

  /// Shows `root`, which is on the stage of `surface`; both live until `clear` or the page's end.
  void showControl(UserControl& root, Surface& surface);
  /// Shows something else instead; takes the widget.
  void showPlaceholder(QWidget* placeholder);
  void clear();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void scrollContentsBy(int right, int down) override;
  void resizeEvent(QResizeEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void reveal(QWidget* child, const QRect& part);

  Surface* surface_ = nullptr;
};

}  // namespace depcalc::desktop
