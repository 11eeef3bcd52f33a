// A rectangle: a border in the fore colour, a fill in the back colour.
#pragma once

#include "controls/control.h"

namespace depcalc {

class Shape : public Control {
 public:
  Shape(UserControl& parent, std::string name)
      : Control(parent, ControlKind::shape, std::move(name)) {}

  /// Rounded corners.
  [[nodiscard]] bool rounded() const { return rounded_; }
  void setRounded(bool rounded) { assign(rounded_, rounded, Aspect::place); }

 private:
  bool rounded_ = false;
};

}  // namespace depcalc
