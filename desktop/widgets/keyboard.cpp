#include "desktop/widgets/keyboard.h"

#include <algorithm>
#include <cctype>

#include "controls/label.h"
#include "controls/picture_button.h"

namespace depcalc::desktop {
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
    return control->name() == "HelpLabel" && control->kind() == ControlKind::label &&
           static_cast<const Label*>(control)->clickable();
  });
}

Control* closeTarget(const Stage& stage) {
  return firstShown(stage, [](const Control* control) {
    return control->kind() == ControlKind::pictureButton &&
           static_cast<const PictureButton*>(control)->picture() == "close";
  });
}

}  // namespace depcalc::desktop
