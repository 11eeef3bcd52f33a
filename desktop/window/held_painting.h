// A widget that shows nothing of what goes on meanwhile.
#pragma once

#include <QPointer>
#include <QWidget>

namespace depcalc::desktop {

/// While it lives, neither the widget nor anything in it is painted; then what changed is.
class HeldPainting {
 public:
  explicit HeldPainting(QWidget* widget) : widget_(widget) { enable(false); }
  ~HeldPainting() { enable(true); }
  HeldPainting(const HeldPainting&) = delete;
  HeldPainting& operator=(const HeldPainting&) = delete;

 private:
  void enable(bool on) {
    if (widget_ != nullptr) widget_->setUpdatesEnabled(on);
  }

  QPointer<QWidget> widget_;
};

}  // namespace depcalc::desktop
