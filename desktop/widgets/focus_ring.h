// The mark of what has the keys.
#pragma once

#include <QWidget>

#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// A ring around part of a widget. It stands beside that in the same parent and over everything
/// there, so that it has room where the widget is no larger than its text.
class FocusRing : public QWidget {
 public:
  FocusRing(QWidget& around, const QRect& part, const Surface& surface);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Surface& surface_;
};

}  // namespace depcalc::desktop
