#include "windows/controls/drop_down_list_window.h"

#include <utility>

#include "windows/com/com_text.h"
#include "windows/controls/control_drawing.h"
#include "windows/controls/keys.h"

namespace depcalc::native {

void DropDownListWindow::create(HWND parent) {
  createNative(parent, L"COMBOBOX", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL);
  if (handle() == nullptr) return;
  for (const Aspect aspect : {Aspect::font, Aspect::items}) apply(aspect);
}

/// The height that a list is given is that of its field and of the list when open.
void DropDownListWindow::place(const Around& around) {
  ControlWindow::place(around);
  if (handle() == nullptr) return;
  const RECT area = surface().zoom().rect(list_.place(), around.corner);
  const int wanted = area.bottom - area.top;
  RECT now{};
  GetWindowRect(handle(), &now);
  const auto item =
      static_cast<int>(SendMessageW(handle(), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
  const int field = item + wanted - (now.bottom - now.top);
  if (field != item && field > 0) {
    SendMessageW(handle(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field);
  }
  const auto row = static_cast<int>(SendMessageW(handle(), CB_GETITEMHEIGHT, 0, 0));
  SetWindowPos(handle(), nullptr, area.left, area.top, area.right - area.left,
               wanted + row * (list_.count() + 1), SWP_NOZORDER | SWP_NOACTIVATE);
}

void DropDownListWindow::apply(Aspect aspect) {
  if (handle() == nullptr) return;
  switch (aspect) {
    case Aspect::items:
      SendMessageW(handle(), CB_RESETCONTENT, 0, 0);
      for (const std::string& item : list_.items()) {
        SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(utf16(item).c_str()));
      }
      showModel();
      break;
    case Aspect::choice:
      showModel();
      break;
    case Aspect::font:
      SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(surface().font(list_.font())),
                   TRUE);
      SendMessageW(handle(), CB_SETITEMHEIGHT, 0,
                   surface().canvas(nullptr).textSize(L"X", list_.font()).cy +
                       2 * surface().zoom().pixels(30));
      place(around());
      break;
    default:
      repaint();
      break;
  }
}

void DropDownListWindow::showModel() {
  if (!alive()) return;
  SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(list_.index()), 0);
  repaint();
}

bool DropDownListWindow::isOpen() const {
  return SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void DropDownListWindow::choose() {
  const auto index = static_cast<int>(SendMessageW(handle(), CB_GETCURSEL, 0, 0));
  if (index >= 0) surface().act([&](User& user) { user.chooseItem(list_, index); });
  showModel();
}

void DropDownListWindow::notified(UINT code) {
  if (!alive()) return;
  if (code == CBN_DROPDOWN) chosen_ = false;
  if (code == CBN_SELENDOK) chosen_ = true;
  if (code == CBN_SELENDCANCEL) chosen_ = false;
  if (code == CBN_SELCHANGE && !isOpen()) choose();
  if (code == CBN_CLOSEUP) {
    PostMessageW(surface().frame(), list_closed_message, reinterpret_cast<WPARAM>(handle()), 0);
  }
  if (alive()) repaint();
}

void DropDownListWindow::listClosed() {
  if (!alive()) return;
  if (std::exchange(chosen_, false)) {
    choose();
  } else {
    showModel();
  }
}

bool DropDownListWindow::keyDown(UINT message, WPARAM key) {
  if (isOpen()) return false;
  const std::optional<Direction> direction = directionOf(key);
  if (message == WM_KEYDOWN && direction.has_value()) {
    surface().act([&](User& user) { user.arrow(*direction); });
    return true;
  }
  return false;
}

LRESULT DropDownListWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_PAINT:
      paint([this](const Canvas& canvas, const RECT& /*part*/) {
        RECT area{};
        GetClientRect(handle(), &area);
        canvas.fill(area, canvas.tones().ground(looks::groundBehind(list_)));
        drawList(canvas, list_, area, GetFocus() == handle());
      });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      if (!isOpen() && !pressed()) return 0;
      break;
    case WM_MOUSEWHEEL:
      // The page scrolls; a list that changed under the wheel would be a change nobody meant.
      if (!isOpen()) return SendMessageW(GetParent(handle()), message, wide, low);
      break;
    case WM_KEYDOWN:
      // In an open list Escape, Enter and Tab are the list's own.
      if (isOpen()) break;
      if (keyDown(message, wide)) return 0;
      return FieldWindow::handleMessage(message, wide, low);
    case WM_CHAR:
      if (surface().swallowsCharacter()) return 0;
      break;
    case WM_GETDLGCODE:
      return original(message, wide, low) | DLGC_WANTALLKEYS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_SYSKEYDOWN:
    case WM_GETOBJECT:
      return FieldWindow::handleMessage(message, wide, low);
    default:
      return FieldWindow::handleMessage(message, wide, low);
  }
  const LRESULT result = original(message, wide, low);
  repaint();
  return result;
}

}  // namespace depcalc::native
