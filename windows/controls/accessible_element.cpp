#include "windows/controls/accessible_element.h"

#include <oleacc.h>

#include "controls/accessible_text.h"
#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/text_box.h"

namespace depcalc::native {
namespace {

bool isLink(const Control& control) {
  return control.kind() == ControlKind::label && static_cast<const Label&>(control).clickable();
}

bool isChosenOption(const Control& control) {
  return control.kind() == ControlKind::optionButton &&
         static_cast<const OptionButton&>(control).value();
}

std::string cellName(const Grid& grid, int row, int column) {
  if (row == 0 || column == 0) return std::string(grid.text(row, column));
  std::string name(grid.text(row, 0));
  const std::string_view heading = grid.text(0, column);
  if (!name.empty() && !heading.empty()) name += ", ";
  return name.append(heading);
}

}  // namespace

long AccessibleElement::role() const {
  if (isCell()) return ROLE_SYSTEM_CELL;
  switch (control_->kind()) {
    case ControlKind::label:
      return isLink(*control_) ? ROLE_SYSTEM_LINK : ROLE_SYSTEM_STATICTEXT;
    case ControlKind::textBox:
      return ROLE_SYSTEM_TEXT;
    case ControlKind::dropDownList:
      return ROLE_SYSTEM_COMBOBOX;
    case ControlKind::optionButton:
      return ROLE_SYSTEM_RADIOBUTTON;
    case ControlKind::pictureButton:
      return ROLE_SYSTEM_PUSHBUTTON;
    case ControlKind::grid:
      return ROLE_SYSTEM_TABLE;
    case ControlKind::userControl:
      return ROLE_SYSTEM_GROUPING;
    default:
      return ROLE_SYSTEM_GRAPHIC;
  }
}

std::string AccessibleElement::name() const {
  return isCell() ? cellName(grid(), row_, column_) : accessibleName(*control_);
}

std::string AccessibleElement::value() const {
  if (isCell()) return std::string(grid().text(row_, column_));
  if (control_->kind() == ControlKind::textBox) {
    return static_cast<const TextBox&>(*control_).text();
  }
  if (control_->kind() == ControlKind::dropDownList) {
    return static_cast<const DropDownList&>(*control_).text();
  }
  return {};
}

std::string AccessibleElement::description() const {
  return isCell() ? std::string() : accessibleDescription(*control_);
}

long AccessibleElement::stateOfCell() const {
  const bool current = grid().row() == row_ && grid().column() == column_;
  long state = STATE_SYSTEM_READONLY | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
  if (current) state |= STATE_SYSTEM_SELECTED;
  if (current && grid().hasFocus()) state |= STATE_SYSTEM_FOCUSED;
  return state;
}

long AccessibleElement::state(const Surface& surface) const {
  long state = control_->isShown() ? 0 : STATE_SYSTEM_INVISIBLE;
  if (isCell()) return state | stateOfCell();
  if (const auto* const input = dynamic_cast<const InputControl*>(control_)) {
    state |= STATE_SYSTEM_FOCUSABLE;
    if (input->hasFocus() && surface.keysAt() == nullptr) state |= STATE_SYSTEM_FOCUSED;
  }
  if (surface.keysAt() == control_) state |= STATE_SYSTEM_FOCUSED;
  if (isClicked()) state |= STATE_SYSTEM_FOCUSABLE;
  if (isLink(*control_)) state |= STATE_SYSTEM_LINKED;
  if (isChosenOption(*control_)) state |= STATE_SYSTEM_CHECKED;
  return state;
}

std::string AccessibleElement::shortcut() const {
  const char letter = isCell() ? '\0' : control_->mnemonic();
  return letter == 0 ? "" : std::string("Alt+") + letter;
}

bool AccessibleElement::isClicked() const {
  return isCell() || isLink(*control_) || control_->kind() == ControlKind::pictureButton ||
         control_->kind() == ControlKind::optionButton;
}

std::string AccessibleElement::defaultAction() const {
  if (!isClicked()) return {};
  return !isCell() && isLink(*control_) ? "Jump" : "Press";
}

void AccessibleElement::click(User& user) const {
  if (!isCell()) return user.click(*control_);
  user.clickCell(grid(), row_, column_);
}

}  // namespace depcalc::native
