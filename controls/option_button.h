// An option button.
#pragma once

#include "controls/input_control.h"
#include "controls/with_font.h"

namespace depcalc {

/// A click of the user selects it and raises Click. Setting the value raises nothing, and
/// clearing the other options is the screen's work.
class OptionButton : public WithFont<InputControl> {
 public:
  OptionButton(UserControl& parent, std::string name, std::string text = {})
      : WithFont(parent, ControlKind::optionButton, std::move(name)), text_(std::move(text)) {}

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string text) { assign(text_, std::move(text), Aspect::text); }

  [[nodiscard]] bool value() const { return value_; }
  void setValue(bool selected) { assign(value_, selected, Aspect::choice); }

  Handler onClick;

 private:
  void click() override {
    setValue(true);
    raise("Click", onClick);
  }

  std::string text_;
  bool value_ = false;
};

}  // namespace depcalc
