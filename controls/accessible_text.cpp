#include "controls/accessible_text.h"

#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_button.h"
#include "controls/user_control.h"

namespace depcalc {
namespace {

/// One blank for any number of blanks and line breaks, none at the ends.
std::string simplified(std::string_view text) {
  std::string words;
  bool gap = false;
  for (const char c : text) {
    const bool blank = c == ' ' || (c >= '\t' && c <= '\r');
    if (!blank && gap && !words.empty()) words += ' ';
    if (!blank) words += c;
    gap = blank;
  }
  return words;
}

const Label* labelOf(const Control& control) {
  if (control.parent() == nullptr) return nullptr;
  for (const Control* sibling : control.parent()->children()) {
    if (sibling->kind() != ControlKind::label) continue;
    const auto* label = static_cast<const Label*>(sibling);
    if (label->target() == &control) return label;
  }
  return nullptr;
}

std::string titleOf(const UserControl& control) {
  for (const Control* child : control.children()) {
    if (child->kind() != ControlKind::label) continue;
    const auto& label = static_cast<const Label&>(*child);
    if (label.role() == LabelRole::title) return simplified(label.text());
  }
  return {};
}

std::string captionOf(const Control& control) {
  switch (control.kind()) {
    case ControlKind::label:
      return simplified(static_cast<const Label&>(control).text());
    case ControlKind::optionButton:
      return simplified(static_cast<const OptionButton&>(control).text());
    case ControlKind::pictureButton:
      return static_cast<const PictureButton&>(control).caption();
    case ControlKind::userControl:
      return titleOf(static_cast<const UserControl&>(control));
    default: {
      const Label* label = labelOf(control);
      return label == nullptr ? std::string() : simplified(label->text());
    }
  }
}

}  // namespace

std::string accessibleName(const Control& control) {
  const std::string caption = captionOf(control);
  return caption.empty() ? control.name() : caption;
}

std::string accessibleDescription(const Control& control) {
  if (control.mnemonic() != 0) return std::string("Alt+") + control.mnemonic();
  const Label* label = labelOf(control);
  return label != nullptr && label->clickable() ? "F1 explains this field" : "";
}

}  // namespace depcalc
