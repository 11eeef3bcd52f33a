// The widget of a screen, a popup, or the container of them.
#pragma once

#include <QWidget>
#include <vector>

#include "controls/user_control.h"
#include "desktop/widgets/control_binding.h"

namespace depcalc::desktop {

/// Makes a widget for every control inside.
class UserControlWidget : public QWidget {
  Q_OBJECT

 public:
  UserControlWidget(UserControl& control, Surface& surface, QWidget* parent);

  [[nodiscard]] UserControl& control() const { return control_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool) override { return false; }

 private:
  void makeRoomFor(const std::vector<Control*>& children, Surface& surface);

  UserControl& control_;
  ControlBinding binding_;
  std::vector<Observation> observations_;
};

/// The widget of the kind that `control` is.
QWidget* makeWidget(Control& control, Surface& surface, QWidget* parent);

}  // namespace depcalc::desktop
