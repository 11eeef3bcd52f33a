// The widget of a picture that acts as a button.
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPointer>

#include "controls/picture_button.h"
#include "desktop/widgets/control_binding.h"
#include "desktop/widgets/focus_ring.h"

namespace depcalc::desktop {

/// Presses and releases go to the model, which shows the pressed picture; nothing of the
/// button's own logic is in use. An assistive tool's "press" is a click.
class PictureButtonWidget : public QAbstractButton {
  Q_OBJECT

 public:
  PictureButtonWidget(PictureButton& button, Surface& surface, QWidget* parent);
  ~PictureButtonWidget() override;

  [[nodiscard]] QSize sizeHint() const override { return size(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override {
    event->setAccepted(binding_.pressedByKey(event->key()));
  }
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override { event->ignore(); }

 private:
  void showRing();

  PictureButton& button_;
  QPointer<FocusRing> ring_;
  ControlBinding binding_;
};

}  // namespace depcalc::desktop
