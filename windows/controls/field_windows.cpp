#include "windows/controls/field_windows.h"

#include <windowsx.h>

#include <algorithm>

#include "controls/accessible_text.h"
#include "windows/com/com_text.h"
#include "windows/controls/control_drawing.h"

namespace depcalc::native {
std::optional<Direction> directionOf(WPARAM key) {
  switch (key) {
    case VK_LEFT:
      return Direction::left;
    case VK_RIGHT:
      return Direction::right;
    case VK_UP:
      return Direction::up;
    case VK_DOWN:
      return Direction::down;
    default:
      return std::nullopt;
  }
}

LRESULT FieldWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  // An open list asks its field.
  if (message == WM_CTLCOLORLISTBOX) return colours(reinterpret_cast<HDC>(wide));
  if (message == WM_ERASEBKGND) return original(message, wide, low);
  return ControlWindow::handleMessage(message, wide, low);
}

LRESULT FieldWindow::colours(HDC dc) {
  const Tones& tones = surface().tones();
  const COLORREF ground = tones.ground(control().backColour());
  SetTextColor(dc, tones.ink(control().foreColour()));
  SetBkColor(dc, ground);
  ground_ = BrushHandle(CreateSolidBrush(ground));
  return reinterpret_cast<LRESULT>(ground_.get());
}

bool FieldWindow::pressed() {
  auto& input = static_cast<InputControl&>(control());
  surface().act([&input](User& user) { user.mouseDown(input); });
  if (!alive() || !input.hasFocus()) return false;
  if (GetFocus() != handle()) SetFocus(handle());
  if (alive()) surface().forgetKeys();
  return alive();
}

// The text box.

void TextBoxWindow::create(HWND parent) {
  createNative(parent, L"EDIT", ES_AUTOHSCROLL | alignmentStyle());
  if (handle() == nullptr) return;
  SendMessageW(handle(), EM_SETLIMITTEXT, 0, 0);
  apply(Aspect::font);
  showModel();
}

DWORD TextBoxWindow::alignmentStyle() const {
  if (box_.alignment() == TextAlignment::right) return ES_RIGHT;
  return box_.alignment() == TextAlignment::center ? ES_CENTER : ES_LEFT;
}

RECT TextBoxWindow::windowArea(const RECT& area) const {
  const HDC dc = GetDC(handle());
  const HGDIOBJ former = SelectObject(dc, surface().font(box_.font()));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, former);
  ReleaseDC(handle(), dc);
  return textAreaOf(area, metrics.tmHeight, surface().zoom());
}

void TextBoxWindow::apply(Aspect aspect) {
  if (handle() == nullptr) return;
  switch (aspect) {
    case Aspect::text:
      showModel();
      break;
    case Aspect::font: {
      const auto others = static_cast<DWORD>(GetWindowLongPtrW(handle(), GWL_STYLE)) &
                          ~static_cast<DWORD>(ES_CENTER | ES_RIGHT);
      SetWindowLongPtrW(handle(), GWL_STYLE, static_cast<LONG_PTR>(others | alignmentStyle()));
      SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(surface().font(box_.font())),
                   TRUE);
      SendMessageW(handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
      break;
    }
    case Aspect::colours:
      repaint();
      break;
    default:
      break;
  }
}

std::wstring TextBoxWindow::shownText() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle())), L'\0');
  const int length = GetWindowTextW(handle(), text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(std::max(0, length)));
  return text;
}

void TextBoxWindow::showModel() {
  if (!alive()) return;
  const std::wstring text = utf16(box_.text());
  if (text == shownText()) return;
  showing_ = true;
  SetWindowTextW(handle(), text.c_str());
  showing_ = false;
  // Typing goes on behind what is there.
  const auto end = static_cast<WPARAM>(text.size());
  SendMessageW(handle(), EM_SETSEL, end, static_cast<LPARAM>(end));
}

void TextBoxWindow::notified(UINT code) {
  if (code != EN_CHANGE || showing_ || !alive()) return;
  std::string text = textFromUtf16(shownText());
  surface().act([&](User& user) { user.edit(box_, std::move(text)); });
  showModel();
}

/// A character above the first plane comes in two halves and is one key.
bool TextBoxWindow::offer(wchar_t unit) {
  char32_t key = unit;
  if (IS_LOW_SURROGATE(unit) && high_surrogate_ != 0) {
    key = 0x10000 + ((high_surrogate_ & 0x3FFU) << 10 | (unit & 0x3FFU));
  }
  bool accepted = false;
  surface().act([&](User& user) { accepted = user.keyPress(box_, key); });
  return accepted && alive();
}

LRESULT TextBoxWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_LBUTTONDOWN:
      if (!pressed()) return 0;
      return original(message, wide, low);
    case WM_LBUTTONDBLCLK:
      if (!box_.hasFocus()) return 0;
      break;
    case WM_CHAR: {
      const auto unit = static_cast<wchar_t>(wide);
      if (surface().swallowsCharacter() || unit == L'\t') return 0;
      if (IS_HIGH_SURROGATE(unit)) {
        high_surrogate_ = unit;
        return 0;
      }
      // Those of Control with a letter are shortcuts of the field's own.
      const bool shortcut =
          unit < L' ' && unit != VK_BACK && unit != VK_RETURN && unit != VK_ESCAPE;
      const bool accepted = shortcut || offer(unit);
      const wchar_t high = std::exchange(high_surrogate_, L'\0');
      if (!accepted || unit == VK_RETURN || unit == VK_ESCAPE) return 0;
      if (high != 0 && IS_LOW_SURROGATE(unit)) {
        showing_ = true;  // half a character is no text
        original(message, high, low);
        showing_ = false;
      }
      return original(message, wide, low);
    }
    case WM_GETDLGCODE:
      return original(message, wide, low) | DLGC_WANTALLKEYS;
    default:
      break;
  }
  return FieldWindow::handleMessage(message, wide, low);
}

// The drop-down list.

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

// The option.

void OptionWindow::create(HWND parent) {
  createNative(parent, L"BUTTON", BS_RADIOBUTTON);
  if (handle() != nullptr) apply(Aspect::text);
}

RECT OptionWindow::windowArea(const RECT& area) const {
  RECT window = area;
  window.left -= surface().zoom().pixels(looks::ring_gap);
  return window;
}

void OptionWindow::apply(Aspect /*aspect*/) {
  if (handle() == nullptr) return;
  SetWindowTextW(handle(), utf16(option_.text()).c_str());
  SendMessageW(handle(), BM_SETCHECK, option_.value() ? BST_CHECKED : BST_UNCHECKED, 0);
  repaint();
}

bool OptionWindow::keyDown(WPARAM key) {
  const std::optional<Direction> direction = directionOf(key);
  if (direction.has_value()) {
    surface().act([&](User& user) { user.arrow(*direction); });
  } else if (key == VK_SPACE) {
    surface().act([this](User& user) { user.click(option_); });
  } else {
    return false;
  }
  return true;
}

void OptionWindow::release(POINT at) {
  if (GetCapture() == handle()) ReleaseCapture();
  if (!std::exchange(pressed_, false)) return;
  RECT area{};
  GetClientRect(handle(), &area);
  Control* const over = PtInRect(&area, at) != FALSE ? &option_ : nullptr;
  surface().act([over](User& user) { user.mouseUp(over); });
}

LRESULT OptionWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_PAINT:
      paint([this](const Canvas& canvas, const RECT& /*part*/) {
        RECT area{};
        GetClientRect(handle(), &area);
        canvas.fill(area, canvas.tones().ground(looks::groundBehind(option_)));
        area.left += surface().zoom().pixels(looks::ring_gap);
        drawOption(canvas, option_, area, GetFocus() == handle());
      });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      SetCapture(handle());
      pressed_ = true;
      pressed();
      return 0;
    case WM_LBUTTONUP:
      release({GET_X_LPARAM(low), GET_Y_LPARAM(low)});
      return 0;
    case WM_KEYDOWN:
      if (keyDown(wide)) return 0;
      break;
    case WM_KEYUP:
    case WM_MOUSEMOVE:
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case BM_SETCHECK:
    case BM_SETSTATE:
    case WM_SETTEXT: {
      const LRESULT result = original(message, wide, low);
      repaint();
      return result;
    }
    default:
      break;
  }
  const LRESULT result = FieldWindow::handleMessage(message, wide, low);
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) repaint();
  return result;
}

LRESULT PictureBoxWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  if (message != WM_PAINT) return ControlWindow::handleMessage(message, wide, low);
  paint([this](const Canvas& canvas, const RECT& part) {
    canvas.fill(part, canvas.tones().ground(box_.backColour()));
  });
  return 0;
}

}  // namespace depcalc::native
