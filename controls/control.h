// What every control on a screen has.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "controls/colour.h"
#include "controls/observation.h"

namespace depcalc {

class Stage;
class UserControl;

enum class ControlKind {
  label,
  textBox,
  dropDownList,
  optionButton,
  pictureButton,
  pictureBox,
  shape,
  grid,
  userControl,
};

/// A place and a size, in twips (1440 to the inch), relative to the containing control.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  friend bool operator==(const Place&, const Place&) = default;
};

/// What happens when an event is raised. Empty: nothing.
using Handler = std::function<void()>;

/// A control: plain data with events. Setting a property to the value it has does nothing;
/// setting another one tells the observers first and raises the event, if it has one, after.
/// Controls are members of the user control that contains them, in tab order, and die with it.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] ControlKind kind() const { return kind_; }
  /// The name used in the code; an element of a control array is "LinkLabel(0)".
  [[nodiscard]] const std::string& name() const { return name_; }
  /// Nothing for the outermost control.
  [[nodiscard]] UserControl* parent() const { return parent_; }
  [[nodiscard]] Stage& stage() const { return stage_; }

  [[nodiscard]] bool visible() const { return visible_; }
  virtual void setVisible(bool visible);
  void show() { setVisible(true); }
  void hide() { setVisible(false); }
  /// Visible, and so is everything that contains it.
  [[nodiscard]] bool isShown() const;

  [[nodiscard]] const Place& place() const { return place_; }
  [[nodiscard]] int left() const { return place_.left; }
  [[nodiscard]] int top() const { return place_.top; }
  [[nodiscard]] int width() const { return place_.width; }
  [[nodiscard]] int height() const { return place_.height; }
  /// All four at once. Negative sizes are error 5.
  virtual void setPlace(const Place& place);
  void setLeft(int left) { setPlace({left, top(), width(), height()}); }
  void setTop(int top) { setPlace({left(), top, width(), height()}); }
  void setWidth(int width) { setPlace({left(), top(), width, height()}); }
  void setHeight(int height) { setPlace({left(), top(), width(), height}); }
  void setPosition(int left, int top) { setPlace({left, top, width(), height()}); }
  void setSize(int width, int height) { setPlace({left(), top(), width, height}); }

  /// Rank among the controls of the same parent; the higher one lies in front.
  [[nodiscard]] int stacking() const { return stacking_; }
  void bringToFront();

  [[nodiscard]] Colour foreColour() const { return fore_colour_; }
  [[nodiscard]] Colour backColour() const { return back_colour_; }
  void setForeColour(Colour colour) { assign(fore_colour_, colour, Aspect::colours); }
  void setBackColour(Colour colour) { assign(back_colour_, colour, Aspect::colours); }

  /// The letter that, with Alt, clicks the control; 0 when there is none.
  [[nodiscard]] char mnemonic() const { return mnemonic_; }
  void setMnemonic(char letter) { mnemonic_ = letter; }

  /// Calls `listener` after every change, until the observation ends.
  [[nodiscard]] Observation observe(Observation::Listener listener);

 protected:
  Control(UserControl& parent, ControlKind kind, std::string name);
  Control(Stage& stage, ControlKind kind, std::string name);

  /// Sets `member`, and tells the observers, when the value differs. Returns whether it did.
  template <typename T>
  bool assign(T& member, T value, Aspect aspect) {
    if (member == value) return false;
    member = std::move(value);
    changed(aspect);
    return true;
  }
  void changed(Aspect aspect);
  /// Records the event in the trace and runs its handler.
  void raise(std::string_view event, const Handler& handler);
  void traceEvent(std::string_view event);

 private:
  friend class Stage;
  friend class User;

  // What a user's mouse does to this kind of control.
  virtual void mouseDown() {}
  virtual void mouseUp() {}
  virtual void click() {}
  virtual void pressAbandoned() {}
  /// The control that a press here is meant for.
  virtual Control& pressTarget() { return *this; }

  ControlKind kind_;
  std::string name_;
  UserControl* parent_ = nullptr;
  Stage& stage_;
  bool visible_ = true;
  Place place_;
  int stacking_ = 0;
  Colour fore_colour_ = window_text;
  Colour back_colour_ = window_background;
  char mnemonic_ = 0;
  std::shared_ptr<Observation::Listeners> listeners_ = std::make_shared<Observation::Listeners>();
};

}  // namespace depcalc
