// Widgets of the controls that are only drawn.
#pragma once

#include <QPointer>
#include <QWidget>

#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/shape.h"
#include "desktop/widgets/control_binding.h"
#include "desktop/widgets/focus_ring.h"

namespace depcalc::desktop {

/// A text. With a back colour of its own it is a tab; one that can be clicked shows the hand.
class LabelWidget : public QWidget {
  Q_OBJECT

 public:
  LabelWidget(Label& label, Surface& surface, QWidget* parent);
  ~LabelWidget() override;

  [[nodiscard]] Label& control() const { return label_; }
  /// As a click of the mouse.
  void click();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void showRing();

  Label& label_;
  QPointer<FocusRing> ring_;
  ControlBinding binding_;
};

class ShapeWidget : public QWidget {
  Q_OBJECT

 public:
  ShapeWidget(Shape& shape, Surface& surface, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  Shape& shape_;
  ControlBinding binding_;
};

class PictureBoxWidget : public QWidget {
  Q_OBJECT

 public:
  PictureBoxWidget(PictureBox& box, Surface& surface, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PictureBox& box_;
  ControlBinding binding_;
};

}  // namespace depcalc::desktop
