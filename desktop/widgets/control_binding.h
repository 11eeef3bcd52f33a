// What every widget of the calculator has in common.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "controls/input_control.h"
#include "desktop/widgets/surface.h"

namespace depcalc::desktop {

/// Keeps a widget as its control says: name, place, visibility and stacking by itself, the rest
/// through `apply`, which is called for each aspect that changes and, for colours and font, when
/// the desktop's style or the zoom does. The control lives longer than the widget.
class ControlBinding : public QObject {
 public:
  using Apply = std::function<void(Aspect)>;

  ControlBinding(QWidget& widget, Control& control, Surface& surface, Apply apply);
  ~ControlBinding() override;

  [[nodiscard]] Surface& surface() const { return surface_; }
  [[nodiscard]] const Scale& scale() const { return surface_.scale(); }
  [[nodiscard]] const Colours& colours() const { return surface_.colours(); }

  // The mouse, as the model wants to hear of it. `at` is in global coordinates.
  void pressed();
  void released(const QPoint& at);

  /// Space and Enter click the control; returns whether `key` was one of them.
  bool pressedByKey(int key);

  /// Puts the widget where the control is. Where the outermost one stands is left to who shows it;
  /// its widget has room for what reaches beyond its edges.
  void place();

 protected:
  virtual void changed(Aspect aspect);
  [[nodiscard]] QWidget& widget() const { return widget_; }

 private:
  void setVisible();

  QWidget& widget_;
  Control& control_;
  Surface& surface_;
  Apply apply_;
  Observation observation_;
};

/// A control that can have the focus: the model gives and takes it, Qt follows. Tab, F1, Escape
/// and Alt with a letter go to the surface before the widget sees them.
class InputBinding : public ControlBinding {
 public:
  InputBinding(QWidget& widget, InputControl& control, Surface& surface, Apply apply);

  bool eventFilter(QObject* watched, QEvent* event) override;

  void pressed() {
    ControlBinding::pressed();
    takeFocusBack();
  }
  /// The control may have the model's focus while the keys go to a button of the page.
  void takeFocusBack();

 protected:
  void changed(Aspect aspect) override;

 private:
  void followModel();
  void askModel();

  InputControl& control_;
};

/// What a screen reader calls the control; never empty.
[[nodiscard]] QString accessibleNameOf(const Control& control);

}  // namespace depcalc::desktop
