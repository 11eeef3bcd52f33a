// A drop-down list: one of several fixed texts.
#pragma once

#include <vector>

#include "controls/input_control.h"
#include "controls/with_font.h"

namespace depcalc {

class DropDownList : public WithFont<InputControl> {
 public:
  static constexpr int none = -1;

  DropDownList(UserControl& parent, std::string name, std::vector<std::string> items)
      : WithFont(parent, ControlKind::dropDownList, std::move(name)), items_(std::move(items)) {}

  [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
  [[nodiscard]] int count() const { return static_cast<int>(items_.size()); }

  /// The chosen item, counted from 0, or none. No such item: error 5.
  [[nodiscard]] int index() const { return index_; }
  void setIndex(int index);

  /// The chosen item's text, "" when none is. Assigning a text that is no item is error 5.
  [[nodiscard]] std::string text() const;
  void setText(std::string_view text);

  /// Raised whenever another item is chosen, by the user or by assignment.
  Handler onChange;

 private:
  std::vector<std::string> items_;
  int index_ = none;
};

}  // namespace depcalc
