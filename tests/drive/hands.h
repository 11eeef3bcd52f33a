// What a script's user does, however it reaches the calculator.
#pragma once

#include <string>
#include <string_view>

#include "controls/user.h"

namespace depcalc::drive {

/// Acts on a calculator. The controls are those of its model; what is not shown cannot be acted on.
class Hands {
 public:
  virtual ~Hands() = default;

  virtual void moveFocus(InputControl& target) = 0;
  /// Into the text box that has the focus, behind what is there; in place of it for `paste`.
  virtual void type(std::string_view text) = 0;
  virtual void typeKey(char32_t key) = 0;
  virtual void paste(const std::string& text) = 0;
  virtual void tab(bool backwards) = 0;
  virtual void arrow(Direction direction) = 0;
  virtual void chooseItem(DropDownList& list, int index) = 0;
  virtual void click(Control& control) = 0;
  virtual void mouseDown(Control& control) = 0;
  /// Over nothing: outside all.
  virtual void mouseUp(Control* over) = 0;
  virtual void clickCell(Grid& grid, int row, int column) = 0;
  virtual void leave() = 0;

  /// All that is under way comes to its end; but for the paints that are due, in `settle`.
  virtual void idle() = 0;
  virtual void settle() {}
};

/// Acts on the control model itself.
class ModelHands : public Hands {
 public:
  explicit ModelHands(Stage& stage) : stage_(stage), user_(stage) {}

  void moveFocus(InputControl& target) override { user_.moveFocus(target); }
  void type(std::string_view text) override { user_.type(text); }
  void typeKey(char32_t key) override { user_.typeKey(key); }
  void paste(const std::string& text) override { user_.paste(text); }
  void tab(bool backwards) override { user_.tab(backwards); }
  void arrow(Direction direction) override { user_.arrow(direction); }
  void chooseItem(DropDownList& list, int index) override { user_.chooseItem(list, index); }
  void click(Control& control) override { user_.click(control); }
  void mouseDown(Control& control) override { user_.mouseDown(control); }
  void mouseUp(Control* over) override { user_.mouseUp(over); }
  void clickCell(Grid& grid, int row, int column) override { user_.clickCell(grid, row, column); }
  void leave() override { user_.leave(); }
  void idle() override { stage_.pumpPaint(); }

 private:
  Stage& stage_;
  User user_;
};

}  // namespace depcalc::drive
