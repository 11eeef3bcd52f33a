// A one-line text box.
#pragma once

#include "controls/input_control.h"
#include "controls/with_font.h"

namespace depcalc {

/// Its text changes key by key (key press, the text, Change), by an edit such as pasting (the
/// text, Change), or by assignment (the text, Change).
class TextBox : public WithFont<InputControl> {
 public:
  TextBox(UserControl& parent, std::string name)
      : WithFont(parent, ControlKind::textBox, std::move(name)) {}

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string text) {
    if (assign(text_, std::move(text), Aspect::text)) raise("Change", onChange);
  }
  [[nodiscard]] bool empty() const { return text_.empty(); }

  /// Raised for every key that has a character code (Backspace is 8, Return 13), before it
  /// reaches the text; setting `discard` keeps it from getting there.
  std::function<void(char32_t key, bool& discard)> onKeyPress;
  Handler onChange;

 private:
  friend class User;

  std::string text_;
};

}  // namespace depcalc
