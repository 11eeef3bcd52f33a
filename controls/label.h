// A label: a text that can be clicked and never takes the focus.
#pragma once

#include "controls/control.h"
#include "controls/with_font.h"

namespace depcalc {

class InputControl;

/// What a label is for. Whoever shows it goes by this, not by its name or looks.
enum class LabelRole {
  text,
  title,     ///< of the screen or popup that it stands in
  tab,       ///< leads to a page, or is that of the page that shows
  link,      ///< a click opens help
  page_help  ///< the link to help with the whole page
};

class Label : public WithFont<Control> {
 public:
  Label(UserControl& parent, std::string name, std::string text = {});

  [[nodiscard]] LabelRole role() const { return role_; }
  void setRole(LabelRole role) { role_ = role; }

  [[nodiscard]] const std::string& text() const { return text_; }
  void setText(std::string text);

  /// Wrapped at its width into as many lines as the text needs; otherwise only at line breaks.
  [[nodiscard]] bool wordWrap() const { return word_wrap_; }
  void setWordWrap(bool wrap);
  /// Its size follows its text: the height alone when it wraps, else width and height.
  [[nodiscard]] bool autoSize() const { return auto_size_; }
  void setAutoSize(bool follow);
  void setPlace(const Place& place) override;

  /// The control that this label names, if any.
  [[nodiscard]] InputControl* target() const { return target_; }
  void setTarget(InputControl& target) { target_ = &target; }

  /// Whether a click does anything.
  [[nodiscard]] bool clickable() const { return static_cast<bool>(onClick); }
  Handler onClick;

 private:
  void click() override { raise("Click", onClick); }
  void fontSet(bool differs) override;
  void fit();

  LabelRole role_ = LabelRole::text;
  std::string text_;
  bool word_wrap_ = false;
  bool auto_size_ = false;
  InputControl* target_ = nullptr;
};

}  // namespace depcalc
