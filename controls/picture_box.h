// A box that shows a picture and does nothing else.
#pragma once

#include "controls/control.h"

namespace depcalc {

class PictureBox : public Control {
 public:
  PictureBox(UserControl& parent, std::string name, std::string picture = {})
      : Control(parent, ControlKind::pictureBox, std::move(name)), picture_(std::move(picture)) {}

  /// The picture's name; "" is an empty box.
  [[nodiscard]] const std::string& picture() const { return picture_; }
  void setPicture(std::string picture) { assign(picture_, std::move(picture), Aspect::picture); }

 private:
  std::string picture_;
};

}  // namespace depcalc
