// Widgets of the controls that take the focus, the grid apart.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include "controls/drop_down_list.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "desktop/widgets/control_binding.h"

namespace depcalc::desktop {

/// Keys are offered to the model one by one; what the editing leads to is reported to it, and
/// whatever text it then has is shown.
class TextBoxWidget : public QLineEdit {
  Q_OBJECT

 public:
  TextBoxWidget(TextBox& box, Surface& surface, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void apply(Aspect aspect);
  void showModel();
  bool offer(char32_t key);

  TextBox& box_;
  InputBinding binding_;
};

class DropDownListWidget : public QComboBox {
  Q_OBJECT

 public:
  DropDownListWidget(DropDownList& list, Surface& surface, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void apply(Aspect aspect);
  void showModel();

  DropDownList& list_;
  InputBinding binding_;
};

class OptionButtonWidget : public QRadioButton {
  Q_OBJECT

 public:
  OptionButtonWidget(OptionButton& option, Surface& surface, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent*) override {}
  void nextCheckState() override {}

 private:
  void apply(Aspect aspect);

  OptionButton& option_;
  InputBinding binding_;
};

}  // namespace depcalc::desktop
