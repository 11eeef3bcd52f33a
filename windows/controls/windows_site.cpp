#include "windows/controls/windows_site.h"

#include "values/runtime_error.h"
#include "windows/com/com_text.h"

namespace depcalc::native {
namespace {

UINT buttonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::yesNo:
      return MB_YESNO;
    case BoxButtons::yesNoCancel:
      return MB_YESNOCANCEL;
    default:
      return MB_OK;
  }
}

/// A box that could not be shown is answered by what changes nothing.
BoxAnswer answerOf(int button, BoxButtons buttons) {
  switch (button) {
    case IDYES:
      return BoxAnswer::yes;
    case IDNO:
      return BoxAnswer::no;
    case IDOK:
      return BoxAnswer::ok;
    default:
      break;
  }
  if (buttons == BoxButtons::ok) return BoxAnswer::ok;
  return buttons == BoxButtons::yesNoCancel ? BoxAnswer::cancel : BoxAnswer::no;
}

}  // namespace

WindowsSite::WindowsSite(Surroundings surroundings)
    : surroundings_(std::move(surroundings)), measure_(surroundings_.font_family) {}

BoxAnswer WindowsSite::showBox(const MessageBox& box) {
  const HWND owner = surroundings_.owner ? surroundings_.owner() : nullptr;
  const HWND focus = GetFocus();
  // A question over an hourglass could not be answered.
  const bool waiting = hourglass_;
  setPointer(Pointer::normal);
  const UINT style = buttonsOf(box.buttons) | (owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL);
  const int button = MessageBoxW(owner, utf16(box.text).c_str(), utf16(box.title).c_str(), style);
  // Many a host's window takes the focus itself when it becomes active again.
  if (focus != nullptr && IsWindowVisible(focus) != FALSE) SetFocus(focus);
  if (waiting) setPointer(Pointer::hourglass);
  return answerOf(button, box.buttons);
}

void WindowsSite::beep() { MessageBeep(MB_OK); }

void WindowsSite::setPointer(Pointer pointer) {
  const bool hourglass = pointer == Pointer::hourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  SetCursor(LoadCursorW(nullptr, hourglass ? IDC_WAIT : IDC_ARROW));
}

Date WindowsSite::today() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return Date::strict(now.wYear, now.wMonth, now.wDay);
}

Printer& WindowsSite::systemPrinter() {
  printer_ = nullptr;
  std::unique_ptr<PageDevice> device = surroundings_.printer ? surroundings_.printer() : nullptr;
  if (device == nullptr) throw RuntimeError(482, "Printer error");
  printer_ = std::make_unique<GdiPrinter>(std::move(device), surroundings_.font_family);
  return *printer_;
}

double WindowsSite::twipsPerPixel() { return 1440.0 / surroundings_.dpi(); }

TextExtent WindowsSite::textExtent(std::string_view text, const Font& font, int wrap_width) {
  return measure_.extent(text, font, wrap_width);
}

}  // namespace depcalc::native
