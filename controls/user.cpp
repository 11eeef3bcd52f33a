#include "controls/user.h"

#include <algorithm>
#include <utility>

#include "controls/option_button.h"
#include "values/text.h"
#include "values/utf8.h"

namespace depcalc {
namespace {

std::string withoutLast(const std::string& text) {
  const std::size_t count = characterCount(text);
  return std::string(firstCharacters(text, count == 0 ? 0 : count - 1));
}

template <typename Kind>
std::vector<Kind*> shownChildren(const UserControl& parent) {
  std::vector<Kind*> found;
  for (Control* child : parent.children()) {
    auto* const kind = dynamic_cast<Kind*>(child);
    if (kind != nullptr && kind->isShown()) found.push_back(kind);
  }
  return found;
}

/// The one before or after `from`, round and round; the first (last) when `from` is not there.
template <typename Kind>
Kind* neighbour(const std::vector<Kind*>& all, const Control* from, bool backwards) {
  if (all.empty()) return nullptr;
  const auto at = std::find(all.begin(), all.end(), from);
  if (at == all.end()) return backwards ? all.back() : all.front();
  const auto position = static_cast<std::size_t>(at - all.begin());
  return all[(position + (backwards ? all.size() - 1 : 1)) % all.size()];
}

UserControl* frontmostShown(const std::vector<UserControl*>& roots) {
  UserControl* found = nullptr;
  for (UserControl* root : roots) {
    if (!root->isShown()) continue;
    found = root;
    const auto inner = shownChildren<UserControl>(*root);
    for (UserControl* child : inner) {
      if (!shownChildren<InputControl>(*child).empty()) return child;
    }
  }
  return found;
}

}  // namespace

void User::typeKey(char32_t key) {
  auto* const box = dynamic_cast<TextBox*>(stage_.focused());
  if (box == nullptr || !keyPress(*box, key)) return;
  if (key == backspace) {
    edit(*box, withoutLast(box->text()));
  } else if (key >= 32) {
    edit(*box, box->text() + encodedUtf8(key));
  }
}

void User::type(std::string_view text) {
  while (!text.empty()) {
    const Utf8Character character = decodedFirst(text);
    typeKey(character.code);
    text.remove_prefix(character.length);
  }
}

void User::paste(std::string text) {
  if (auto* const box = dynamic_cast<TextBox*>(stage_.focused())) edit(*box, std::move(text));
}

bool User::keyPress(TextBox& box, char32_t key) {
  if (!box.hasFocus()) return false;
  bool discard = false;
  box.traceEvent("KeyPress");
  if (box.onKeyPress) box.onKeyPress(key, discard);
  return !discard;
}

void User::edit(TextBox& box, std::string text) {
  if (box.hasFocus()) box.setText(std::move(text));
}

void User::tab(bool backwards) {
  const InputControl* const from = stage_.focused();
  const UserControl* const screen =
      from != nullptr ? from->parent() : frontmostShown(stage_.roots());
  if (screen == nullptr) return;
  InputControl* const next = neighbour(shownChildren<InputControl>(*screen), from, backwards);
  if (next != nullptr) stage_.moveFocus(*next);
}

void User::arrow(Direction direction) {
  const bool backwards = direction == Direction::left || direction == Direction::up;
  InputControl* const at = stage_.focused();
  if (auto* const list = dynamic_cast<DropDownList*>(at)) {
    const int last = list->count() - 1;
    if (last >= 0) list->setIndex(std::clamp(list->index() + (backwards ? -1 : 1), 0, last));
  } else if (auto* const grid = dynamic_cast<Grid*>(at)) {
    const bool vertical = direction == Direction::up || direction == Direction::down;
    const int row = grid->row() + (vertical ? (backwards ? -1 : 1) : 0);
    const int column = grid->column() + (vertical ? 0 : (backwards ? -1 : 1));
    const bool inside = row >= 0 && row < grid->rows() && column >= 0 && column < grid->columns();
    if (inside) clickCell(*grid, row, column);
  } else if (dynamic_cast<OptionButton*>(at) != nullptr) {
    moveOption(backwards);
  }
}

void User::moveOption(bool backwards) {
  const InputControl& from = *stage_.focused();
  click(*neighbour(shownChildren<OptionButton>(*from.parent()), &from, backwards));
}

void User::chooseItem(DropDownList& list, int index) {
  if (stage_.moveFocus(list)) list.setIndex(index);
}

void User::mouseDown(Control& control) {
  if (!control.isShown()) return;
  Control& target = control.pressTarget();
  stage_.pressed_ = &target;
  auto* const itself = dynamic_cast<UserControl*>(&target);
  for (UserControl* around = itself != nullptr ? itself : target.parent(); around != nullptr;
       around = around->parent()) {
    around->traceEvent("Activate");
    around->Activate();
  }
  auto* const input = dynamic_cast<InputControl*>(&target);
  if (input != nullptr && !stage_.moveFocus(*input)) {
    stage_.pressed_ = nullptr;
    return;
  }
  target.mouseDown();
}

void User::mouseUp(Control* over) {
  Control* const pressed = std::exchange(stage_.pressed_, nullptr);
  if (pressed == nullptr) return;
  if (over == nullptr || &over->pressTarget() != pressed || !pressed->isShown()) {
    pressed->pressAbandoned();
    return;
  }
  pressed->mouseUp();
  if (pressed->isShown()) pressed->click();
}

void User::click(Control& control) {
  mouseDown(control);
  mouseUp(&control);
}

void User::clickCell(Grid& grid, int row, int column) {
  if (!grid.isShown() || !stage_.moveFocus(grid)) return;
  grid.setRow(row);
  grid.setColumn(column);
  grid.click();
}

void User::leave() {
  validateFocused();
  loseFocus();
}

void User::loseFocus() {
  for (UserControl* root : stage_.roots()) {
    root->traceEvent("LostFocus");
    root->LostFocus();
  }
}

}  // namespace depcalc
