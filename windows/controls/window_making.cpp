#include "windows/controls/window_making.h"

#include "windows/controls/drop_down_list_window.h"
#include "windows/controls/grid_window.h"
#include "windows/controls/option_window.h"
#include "windows/controls/page_window.h"
#include "windows/controls/picture_box_window.h"
#include "windows/controls/text_box_window.h"

namespace depcalc::native {
namespace {

using Windows = std::vector<std::shared_ptr<ControlWindow>>;

/// Null for what is only drawn.
std::shared_ptr<ControlWindow> makeWindow(Control& control, Surface& surface) {
  switch (control.kind()) {
    case ControlKind::textBox:
      return std::make_shared<TextBoxWindow>(static_cast<TextBox&>(control), surface);
    case ControlKind::dropDownList:
      return std::make_shared<DropDownListWindow>(static_cast<DropDownList&>(control), surface);
    case ControlKind::optionButton:
      return std::make_shared<OptionWindow>(static_cast<OptionButton&>(control), surface);
    case ControlKind::pictureBox:
      return std::make_shared<PictureBoxWindow>(static_cast<PictureBox&>(control), surface);
    case ControlKind::grid:
      return std::make_shared<GridWindow>(static_cast<Grid&>(control), surface);
    case ControlKind::userControl:
      return std::make_shared<PageWindow>(static_cast<UserControl&>(control), surface);
    default:
      return nullptr;
  }
}

void addWindows(UserControl& page, Surface& surface, HWND parent, Windows& made) {
  const auto window = makeWindow(page, surface);
  made.push_back(window);
  window->create(parent);
  for (Control* child : backToFront(page)) {
    if (child->kind() == ControlKind::userControl) {
      addWindows(static_cast<UserControl&>(*child), surface, window->handle(), made);
    } else if (const auto inside = makeWindow(*child, surface)) {
      made.push_back(inside);
      inside->create(window->handle());
    }
    // What is made later lies in front.
    const ControlWindow* const latest = surface.window(*child);
    if (latest == nullptr || latest->handle() == nullptr) continue;
    SetWindowPos(latest->handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

}  // namespace

std::vector<std::shared_ptr<ControlWindow>> makeWindows(UserControl& page, Surface& surface,
                                                        HWND parent) {
  Windows made;
  addWindows(page, surface, parent, made);
  return made;
}

}  // namespace depcalc::native
