// What a user can do to the controls.
#pragma once

#include <string>
#include <string_view>

#include "controls/drop_down_list.h"
#include "controls/grid.h"
#include "controls/stage.h"
#include "controls/text_box.h"

namespace depcalc {

enum class Direction { left, right, up, down };

/// The entry points of the desktop's widgets, of scripts and of tests. Whatever is not shown
/// cannot be acted on: such an action does nothing.
class User {
 public:
  static constexpr char32_t backspace = 8;

  explicit User(Stage& stage) : stage_(stage) {}

  /// Types one key into the text box that has the focus, its caret at the end: key press, the
  /// text, Change. Keys below 32 other than Backspace leave the text alone.
  void typeKey(char32_t key);
  /// Types each character of `text` (UTF-8).
  void type(std::string_view text);
  /// Replaces the whole text of the text box that has the focus, through Change alone.
  void paste(std::string text);
  void clear() { paste({}); }

  /// For a widget with a caret of its own: raises key press and returns whether the key is to
  /// reach the text. The widget then reports the text that the key leads to as an edit.
  bool keyPress(TextBox& box, char32_t key);
  /// The user's editing led to `text`, by key, paste, cut or undo.
  void edit(TextBox& box, std::string text);

  /// Asks for the focus. Returns whether the control has it now.
  bool moveFocus(InputControl& target) { return stage_.moveFocus(target); }
  /// To the next (previous) control on the same user control that takes the focus, round and
  /// round.
  void tab(bool backwards = false);
  /// An arrow key for the control that has the focus: the next item of a list, the next cell of a
  /// grid (which raises Click), the next option (which raises Click).
  void arrow(Direction direction);

  /// Moves the focus to the list first; refused, nothing is chosen.
  void chooseItem(DropDownList& list, int index);

  /// Presses the mouse on a control, which takes the focus if it can. Where the focus is refused
  /// the press is over.
  void mouseDown(Control& control);
  /// Releases the mouse over a control (nothing: outside all). It acts only on the control that
  /// was pressed; a press released elsewhere is abandoned.
  void mouseUp(Control* over);
  /// A press and a release.
  void click(Control& control);
  /// A click on a cell of a grid, which makes it the current one. No such cell: error 9.
  void clickCell(Grid& grid, int row, int column);

  /// The focus leaves the calculator for something of the host's: the control that has it
  /// validates (a refusal stops nothing), then the outermost controls lose the focus.
  void leave();
  /// `leave` in two steps, for a host that asks the user between them. Returns whether the control
  /// agreed.
  bool validateFocused() { return stage_.validateFocused(); }
  void loseFocus();

 private:
  void moveOption(bool backwards);

  Stage& stage_;
};

}  // namespace depcalc
