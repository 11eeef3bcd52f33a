#include "tests/windows/controls/window_hands.h"

#include <stdexcept>

#include "controls/picture_button.h"
#include "controls/user_control.h"
#include "windows/com/com_text.h"
#include "windows/controls/grid_window.h"

namespace depcalc::testing {
namespace {

constexpr int most_stops = 60;

std::wstring classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

bool liesOver(const Control& picture, const Control& control) {
  return picture.kind() == ControlKind::pictureButton &&
         static_cast<const PictureButton&>(picture).under() == &control;
}

/// What of the model lies in front of `control` at that point (twips), its pressed picture apart.
const Control* covering(const Control& control, int x, int y) {
  for (const Control* sibling : control.parent()->children()) {
    const Place& place = sibling->place();
    const bool here = x >= place.left && x < place.left + place.width && y >= place.top &&
                      y < place.top + place.height;
    if (liesOver(*sibling, control)) continue;
    if (here && sibling->visible() && sibling->stacking() > control.stacking()) {
      return sibling;
    }
  }
  return nullptr;
}

/// Nobody can press what has no size, only what it stands on.
Control& groundOf(const Control& control) {
  for (Control* sibling : control.parent()->children()) {
    if (sibling->kind() == ControlKind::shape) return *sibling;
  }
  throw std::runtime_error(control.name() + " has no size");
}

}  // namespace

void WindowHands::pump(bool paints) {
  MSG message{};
  if (paints && screen_ != nullptr) {
    PostMessageW(screen_->handle(), native::paint_due_message, 0, 0);
  }
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    const bool held = !paints && message.message == native::paint_due_message;
    if (held) continue;
    if (translate(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

bool WindowHands::isTextBox(HWND window) { return window != nullptr && classOf(window) == L"Edit"; }

bool WindowHands::isField(HWND window) {
  const native::ControlWindow* const at = native::ControlWindow::of(window);
  return at != nullptr && dynamic_cast<const InputControl*>(&at->control()) != nullptr;
}

void WindowHands::mouse(UINT message, HWND window, POINT at) const {
  const WPARAM held = message == WM_LBUTTONDOWN ? MK_LBUTTON : 0;
  SendMessageW(window, message, held, MAKELPARAM(at.x, at.y));
}

void WindowHands::moveFocus(InputControl& target) {
  const HWND window = screen_->windowOf(target);
  if (isTextBox(window)) {
    click(target);
  } else {
    SetFocus(window);
  }
  settle();
}

void WindowHands::write(wchar_t unit) {
  if (!isTextBox(focus())) return;
  SendMessageW(focus(), WM_CHAR, unit, 1);
  settle();
}

void WindowHands::press(WPARAM key, wchar_t writes) {
  const HWND at = focus();
  if (at == nullptr) return;
  MSG message{at, WM_KEYDOWN, key, 1, 0, {}};
  const bool taken = translate(message);
  if (!taken) SendMessageW(at, WM_KEYDOWN, key, 1);
  if (writes != 0 && focus() != nullptr && !taken) write(writes);
  if (focus() != nullptr) SendMessageW(focus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  settle();
}

void WindowHands::type(std::string_view text) {
  if (!isTextBox(focus())) return;
  for (const wchar_t unit : utf16(text)) {
    // Behind what is there, also where the text was emptied or formatted meanwhile.
    if (isTextBox(focus())) SendMessageW(focus(), WM_KEYDOWN, VK_END, 1);
    write(unit);
  }
}

void WindowHands::typeKey(char32_t key) {
  if (!isTextBox(focus())) return;
  SendMessageW(focus(), WM_KEYDOWN, VK_END, 1);
  const WPARAM virtual_key = key == 8 ? VK_BACK : key == 13 ? VK_RETURN : VK_ESCAPE;
  press(virtual_key, static_cast<wchar_t>(key));
}

/// All that is there is selected before. An empty text is what Delete leaves.
void WindowHands::paste(const std::string& text) {
  if (!isTextBox(focus())) return;
  SendMessageW(focus(), EM_SETSEL, 0, -1);
  if (text.empty()) return press(VK_DELETE);
  const std::wstring units = utf16(text);
  const std::size_t size = (units.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  CopyMemory(GlobalLock(memory), units.c_str(), size);
  GlobalUnlock(memory);
  if (OpenClipboard(screen_->handle()) == FALSE) throw std::runtime_error("no clipboard");
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
  SendMessageW(focus(), WM_PASTE, 0, 0);
  settle();
}

/// Past the buttons and links, which the script knows nothing of.
void WindowHands::tab(bool backwards) {
  for (int i = 0; i < most_stops; ++i) {
    if (backwards) {
      const HeldKey shift(VK_SHIFT);
      press(VK_TAB);
    } else {
      press(VK_TAB);
    }
    if (isField(focus())) return;
  }
}

void WindowHands::arrow(Direction direction) {
  switch (direction) {
    case Direction::left:
      return press(VK_LEFT);
    case Direction::right:
      return press(VK_RIGHT);
    case Direction::up:
      return press(VK_UP);
    case Direction::down:
      return press(VK_DOWN);
  }
}

void WindowHands::chooseItem(DropDownList& list, int index) {
  const HWND window = screen_->windowOf(list);
  mouse(WM_LBUTTONDOWN, window, {8, 8});
  mouse(WM_LBUTTONUP, window, {8, 8});
  if (SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) == 0) return settle();
  SendMessageW(window, WM_KEYDOWN, VK_HOME, 1);
  for (int i = 0; i < index; ++i) SendMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
  SendMessageW(window, WM_KEYDOWN, VK_RETURN, 1);
  settle();
}

POINT WindowHands::pointOn(const Control& control) const {
  constexpr int steps = 40;
  const RECT area = screen_->areaOf(control);
  const Control* front = nullptr;
  for (int i = 0; i < steps * steps; ++i) {
    // From the middle outwards would find the same; here the first free point will do.
    const int down = (i / steps + steps / 2) % steps;
    const int across = (i % steps + steps / 2) % steps;
    const Place& place = control.place();
    const int x = place.left + place.width * across / steps + place.width / (2 * steps);
    const int y = place.top + place.height * down / steps + place.height / (2 * steps);
    front = covering(control, x, y);
    if (front != nullptr) continue;
    return {area.left + (area.right - area.left) * (x - place.left) / std::max(1, place.width),
            area.top + (area.bottom - area.top) * (y - place.top) / std::max(1, place.height)};
  }
  throw std::runtime_error(control.name() + " lies behind " + front->name());
}

void WindowHands::click(Control& control) {
  if (control.kind() == ControlKind::grid) {
    moveFocus(static_cast<InputControl&>(control));
    return press(VK_SPACE);
  }
  mouseDown(control);
  mouseUp(&control);
}

void WindowHands::mouseDown(Control& control) {
  const bool has_size = control.width() > 0 && control.height() > 0;
  if (!has_size) return mouseDown(groundOf(control));
  pressed_ = screen_->windowOf(control);
  mouse(WM_LBUTTONDOWN, pressed_, pointOn(control));
  settle();
}

/// The system sends the release to the window that was pressed, wherever it lands.
void WindowHands::mouseUp(Control* over) {
  POINT at{-100, -100};
  if (over != nullptr && over->width() > 0) {
    at = pointOn(*over);
    MapWindowPoints(screen_->windowOf(*over), pressed_, &at, 1);
  }
  mouse(WM_LBUTTONUP, pressed_, at);
  settle();
}

void WindowHands::clickCell(Grid& grid, int row, int column) {
  const HWND window = screen_->windowOf(grid);
  const auto& shown = static_cast<const native::GridWindow&>(*native::ControlWindow::of(window));
  const RECT cell = shown.cellArea(row, column);
  const POINT middle{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
  mouse(WM_LBUTTONDOWN, window, middle);
  mouse(WM_LBUTTONUP, window, middle);
  settle();
}

}  // namespace depcalc::testing
