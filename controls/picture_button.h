// A picture that acts as a button, and its pressed twin.
#pragma once

#include "controls/control.h"

namespace depcalc {

/// What a button is for.
enum class ButtonRole {
  plain,
  primary,  ///< leads on: the one of its screen that most users press
  close     ///< closes what it stands on
};

/// A picture that can be pressed. It never takes the focus.
class PictureButton : public Control {
 public:
  /// `picture` names the picture to show ("calc"), `caption` says what it reads ("Calculate").
  PictureButton(UserControl& parent, std::string name, std::string picture, std::string caption)
      : Control(parent, ControlKind::pictureButton, std::move(name)),
        picture_(std::move(picture)),
        caption_(std::move(caption)) {}

  [[nodiscard]] ButtonRole role() const { return role_; }
  void setRole(ButtonRole role) { role_ = role; }

  [[nodiscard]] const std::string& picture() const { return picture_; }
  void setPicture(std::string picture) { assign(picture_, std::move(picture), Aspect::picture); }
  [[nodiscard]] const std::string& caption() const { return caption_; }

  Handler onMouseDown;
  Handler onMouseUp;
  /// The button was pressed and the mouse released elsewhere: nothing is to be done.
  Handler onPressAbandoned;
  /// Follows a mouse up on the button that was pressed.
  Handler onClick;

  /// Raises mouse up now, while the mouse is still down; the release that follows is swallowed,
  /// wherever it lands.
  void releaseNow();

  /// This picture lies over `button`: presses and releases on it are meant for that one.
  void layOver(PictureButton& button) { under_ = &button; }
  /// The button that this picture lies over, if any.
  [[nodiscard]] PictureButton* under() const { return under_; }

 private:
  void mouseDown() override { raise("MouseDown", onMouseDown); }
  void mouseUp() override { raise("MouseUp", onMouseUp); }
  void click() override { raise("Click", onClick); }
  void pressAbandoned() override { raise("PressAbandoned", onPressAbandoned); }
  Control& pressTarget() override { return under_ != nullptr ? *under_ : *this; }

  ButtonRole role_ = ButtonRole::plain;
  std::string picture_;
  std::string caption_;
  PictureButton* under_ = nullptr;
};

/// A button and the hidden picture of it pressed that lies over it: `CalcButton` shows "calc",
/// `CalcButtonP` shows "calc-pressed". A press that is abandoned hides the pressed picture; the
/// rest is for the screen to say.
struct PicturePair {
  PicturePair(UserControl& parent, const std::string& name, const std::string& picture,
              const std::string& caption, char mnemonic);

  /// A press shows the pressed picture; a release hides it again and acts.
  void actOnRelease(Handler action);

  void setRole(ButtonRole role);
  void setPlace(const Place& place);
  void setVisible(bool visible);  ///< the normal picture; hiding hides the pressed one too

  PictureButton normal;
  PictureButton pressed;
};

}  // namespace depcalc
