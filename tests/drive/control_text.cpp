#include "tests/drive/control_text.h"

#include <array>
#include <iomanip>

#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/picture_button.h"
#include "controls/shape.h"
#include "controls/text_box.h"

namespace depcalc::drive {
namespace {

void printColour(std::ostream& out, Colour colour) {
  if (colour == window_text) {
    out << "text";
  } else if (colour == window_background) {
    out << "window";
  } else {
    const unsigned rgb = colour.red() * 0x10000u + colour.green() * 0x100u + colour.blue();
    out << '#' << std::hex << std::setfill('0') << std::setw(6) << rgb << std::dec
        << (colour == colour.paletteRelative() ? "*" : "");
  }
}

template <typename Kind>
void printFont(std::ostream& out, const Kind& control) {
  constexpr std::array<std::string_view, 3> alignments = {"", ", right", ", centered"};
  const Font& font = control.font();
  out << ", " << font.size << " points" << (font.bold ? ", bold" : "")
      << (font.underline ? ", underlined" : "")
      << alignments[static_cast<std::size_t>(control.alignment())];
}

void printLabel(std::ostream& out, const Label& label) {
  constexpr std::array<std::string_view, 5> roles = {"", ", title", ", tab", ", link",
                                                     ", page help"};
  printFont(out, label);
  out << roles[static_cast<std::size_t>(label.role())] << (label.wordWrap() ? ", wrapped" : "")
      << (label.autoSize() ? ", as large as its text" : "")
      << (label.clickable() ? ", clickable" : "");
  if (label.target() != nullptr) out << ", for " << label.target()->name();
}

void printButton(std::ostream& out, const PictureButton& button) {
  constexpr std::array<std::string_view, 3> roles = {"", ", primary", ", closes"};
  out << ", picture " << button.picture() << roles[static_cast<std::size_t>(button.role())];
  if (button.under() != nullptr) out << ", over " << button.under()->name();
}

void printKind(std::ostream& out, const Control& control) {
  switch (control.kind()) {
    case ControlKind::label:
      return printLabel(out, static_cast<const Label&>(control));
    case ControlKind::textBox:
      return printFont(out, static_cast<const TextBox&>(control));
    case ControlKind::dropDownList:
      return printFont(out, static_cast<const DropDownList&>(control));
    case ControlKind::optionButton:
      return printFont(out, static_cast<const OptionButton&>(control));
    case ControlKind::pictureButton:
      return printButton(out, static_cast<const PictureButton&>(control));
    case ControlKind::shape:
      out << (static_cast<const Shape&>(control).rounded() ? ", rounded" : "");
      return;
    case ControlKind::pictureBox:
    case ControlKind::grid:
    case ControlKind::userControl:
      return;
  }
}

void printControl(std::ostream& out, const Control& control) {
  out << control.name() << ": " << control.left() << ' ' << control.top() << ' ' << control.width()
      << ' ' << control.height() << (control.visible() ? ", " : ", hidden, ");
  printColour(out, control.foreColour());
  out << " on ";
  printColour(out, control.backColour());
  printKind(out, control);
  if (control.mnemonic() != 0) out << ", Alt+" << control.mnemonic();
  out << '\n';
}

}  // namespace

void printControls(std::ostream& out, const UserControl& screen) {
  printControl(out, screen);
  for (const Control* control : screen.children()) printControl(out, *control);
}

}  // namespace depcalc::drive
