#include "controls/keyboard.h"

#include <algorithm>
#include <cctype>

#include "controls/label.h"
#include "controls/picture_button.h"

namespace depcalc {
namespace {

/// Everything shown, what lies in front first.
void collectShown(const UserControl& at, std::vector<Control*>& found) {
  std::vector<Control*> children = at.children();
  std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
    return a->stacking() > b->stacking();
  });
  for (Control* child : children) {
    if (!child->visible()) continue;
    if (child->kind() == ControlKind::userControl) {
      collectShown(static_cast<const UserControl&>(*child), found);
    } else {
      found.push_back(child);
    }
  }
}

std::vector<Control*> shownControls(const Stage& stage) {
  std::vector<Control*> found;
  for (const UserControl* root : stage.roots()) {
    if (root->visible()) collectShown(*root, found);
  }
  return found;
}

template <typename Wanted>
Control* firstShown(const Stage& stage, Wanted wanted) {
  const std::vector<Control*> shown = shownControls(stage);
  const auto found = std::find_if(shown.begin(), shown.end(), wanted);
  return found == shown.end() ? nullptr : *found;
}

/// The user controls shown that have no other inside, screens before popups.
void collectScreens(const UserControl& at, std::vector<const UserControl*>& found) {
  for (const Control* child : at.children()) {
    if (child->kind() != ControlKind::userControl || !child->visible()) continue;
    const auto& inner = static_cast<const UserControl&>(*child);
    found.push_back(&inner);
    collectScreens(inner, found);
  }
}

std::vector<const UserControl*> shownScreens(const Stage& stage) {
  std::vector<const UserControl*> found;
  for (const UserControl* root : stage.roots()) {
    if (root->visible()) collectScreens(*root, found);
  }
  return found;
}

bool isLink(const Control& control) {
  if (control.kind() != ControlKind::label) return false;
  const auto& label = static_cast<const Label&>(control);
  return label.clickable() && label.target() == nullptr && !label.text().empty();
}

bool isPressedTwin(const Control& control) {
  return control.kind() == ControlKind::pictureButton &&
         static_cast<const PictureButton&>(control).under() != nullptr;
}

}  // namespace

Control* mnemonicTarget(const Stage& stage, char letter) {
  const int wanted = std::toupper(static_cast<unsigned char>(letter));
  return firstShown(stage, [wanted](const Control* control) {
    const int mnemonic = static_cast<unsigned char>(control->mnemonic());
    return mnemonic != 0 && std::toupper(mnemonic) == wanted && !isPressedTwin(*control);
  });
}

Control* helpTarget(const Stage& stage) {
  const InputControl* const focused = stage.focused();
  Control* const named = firstShown(stage, [focused](const Control* control) {
    if (focused == nullptr || control->kind() != ControlKind::label) return false;
    const auto& label = static_cast<const Label&>(*control);
    return label.target() == focused && label.clickable();
  });
  if (named != nullptr) return named;
  return firstShown(stage, [](const Control* control) {
    return control->kind() == ControlKind::label &&
           static_cast<const Label*>(control)->role() == LabelRole::page_help;
  });
}

std::vector<InputControl*> tabFields(const Stage& stage) {
  std::vector<InputControl*> found;
  for (const UserControl* screen : shownScreens(stage)) {
    for (Control* child : screen->children()) {
      auto* const field = dynamic_cast<InputControl*>(child);
      if (field != nullptr && field->visible()) found.push_back(field);
    }
  }
  return found;
}

std::vector<Control*> tabStops(const Stage& stage) {
  std::vector<Control*> found;
  for (const UserControl* screen : shownScreens(stage)) {
    const auto add = [&](auto wanted) {
      for (Control* child : screen->children()) {
        if (child->visible() && wanted(*child)) found.push_back(child);
      }
    };
    add([](const Control& control) {
      return control.kind() == ControlKind::pictureButton && !isPressedTwin(control);
    });
    add(isLink);
  }
  return found;
}

Control* closeTarget(const Stage& stage) {
  return firstShown(stage, [](const Control* control) {
    return control->kind() == ControlKind::pictureButton &&
           static_cast<const PictureButton*>(control)->role() == ButtonRole::close;
  });
}

namespace {

TabStep toStop(const std::vector<Control*>& stops, bool backwards) {
  return {TabStep::Kind::stop, backwards ? stops.back() : stops.front()};
}

TabStep intoFields(const Stage& stage, const std::vector<Control*>& stops, bool backwards) {
  const std::vector<InputControl*> fields = tabFields(stage);
  if (fields.empty()) return toStop(stops, backwards);
  return {TabStep::Kind::field, backwards ? fields.back() : fields.front()};
}

}  // namespace

TabStep tabStep(const Stage& stage, const Control* keys_at, bool backwards) {
  const std::vector<Control*> stops = tabStops(stage);
  const auto found = std::find(stops.begin(), stops.end(), keys_at);
  if (found != stops.end()) {
    // Back from the first one leads nowhere either.
    const auto next =
        static_cast<std::size_t>(found - stops.begin()) + (backwards ? ~std::size_t{0} : 1);
    if (next < stops.size()) return {TabStep::Kind::stop, stops[next]};
    return intoFields(stage, stops, backwards);
  }
  const std::vector<InputControl*> fields = tabFields(stage);
  const bool leaves =
      fields.empty() || stage.focused() == (backwards ? fields.front() : fields.back());
  return leaves && !stops.empty() ? toStop(stops, backwards) : TabStep{};
}

}  // namespace depcalc
