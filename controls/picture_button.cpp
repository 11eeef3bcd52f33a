#include "controls/picture_button.h"

#include <utility>

#include "controls/stage.h"

namespace depcalc {

void PictureButton::releaseNow() {
  stage().swallowRelease();
  mouseUp();
}

PicturePair::PicturePair(UserControl& parent, const std::string& name, const std::string& picture,
                         const std::string& caption, char mnemonic)
    : normal(parent, name, picture, caption),
      pressed(parent, name + "P", picture + "-pressed", caption) {
  normal.setMnemonic(mnemonic);
  normal.onPressAbandoned = [this] { pressed.hide(); };
  pressed.hide();
  pressed.layOver(normal);
}

void PicturePair::actOnRelease(Handler action) {
  normal.onMouseDown = [this] { pressed.show(); };
  normal.onMouseUp = [this, action = std::move(action)] {
    pressed.hide();
    action();
  };
}

void PicturePair::setRole(ButtonRole role) {
  normal.setRole(role);
  pressed.setRole(role);
}

void PicturePair::setPlace(const Place& place) {
  normal.setPlace(place);
  pressed.setPlace(place);
}

void PicturePair::setVisible(bool visible) {
  normal.setVisible(visible);
  if (!visible) pressed.hide();
}

}  // namespace depcalc
