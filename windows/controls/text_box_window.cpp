#include "windows/controls/text_box_window.h"

#include <algorithm>
#include <utility>

#include "windows/com/com_text.h"
#include "windows/controls/control_drawing.h"

namespace depcalc::native {

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

LRESULT TextBoxWindow::typed(WPARAM character, LPARAM low) {
  const auto unit = static_cast<wchar_t>(character);
  if (surface().swallowsCharacter() || unit == L'\t') return 0;
  if (IS_HIGH_SURROGATE(unit)) {
    high_surrogate_ = unit;
    return 0;
  }
  // Those of Control with a letter are shortcuts of the field's own.
  const bool shortcut = unit < L' ' && unit != VK_BACK && unit != VK_RETURN && unit != VK_ESCAPE;
  const bool accepted = shortcut || offer(unit);
  const wchar_t high = std::exchange(high_surrogate_, L'\0');
  if (!accepted || unit == VK_RETURN || unit == VK_ESCAPE) return 0;
  if (high != 0 && IS_LOW_SURROGATE(unit)) {
    showing_ = true;  // half a character is no text
    original(WM_CHAR, high, low);
    showing_ = false;
  }
  return original(WM_CHAR, character, low);
}

LRESULT TextBoxWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_LBUTTONDOWN:
      if (!pressed()) return 0;
      return original(message, wide, low);
    case WM_LBUTTONDBLCLK:
      if (!box_.hasFocus()) return 0;
      break;
    case WM_CHAR:
      return typed(wide, low);
    case WM_GETDLGCODE:
      return original(message, wide, low) | DLGC_WANTALLKEYS;
    default:
      break;
  }
  return FieldWindow::handleMessage(message, wide, low);
}

}  // namespace depcalc::native
