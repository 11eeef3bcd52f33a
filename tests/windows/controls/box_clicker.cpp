#include "tests/windows/controls/box_clicker.h"

#include "windows/com/com_text.h"

namespace depcalc::testing {
namespace {

constexpr int longest_wait = 2000;  // steps of 5 ms

int idOf(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::yes:
      return IDYES;
    case BoxAnswer::no:
      return IDNO;
    case BoxAnswer::cancel:
      return IDCANCEL;
    default:
      return IDOK;
  }
}

struct Wanted {
  DWORD process;
  std::wstring title;
  HWND found;
};

BOOL CALLBACK look(HWND window, LPARAM wanted_at) {
  auto& wanted = *reinterpret_cast<Wanted*>(wanted_at);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  if (process != wanted.process || std::wstring(name) != L"#32770" ||
      IsWindowVisible(window) == FALSE) {
    return TRUE;
  }
  wanted.found = window;
  return FALSE;
}

HWND boxOfThisProcess() {
  Wanted wanted{GetCurrentProcessId(), {}, nullptr};
  EnumWindows(look, reinterpret_cast<LPARAM>(&wanted));
  return wanted.found;
}

std::string textOf(HWND window) {
  wchar_t text[2048] = {};
  SendMessageW(window, WM_GETTEXT, 2048, reinterpret_cast<LPARAM>(text));
  return textFromUtf16(text);
}

std::string buttonsOf(HWND box) {
  std::string buttons;
  for (const auto& [id, name] : {std::pair{IDOK, "OK"}, std::pair{IDYES, "Yes"},
                                 std::pair{IDNO, "No"}, std::pair{IDCANCEL, "Cancel"}}) {
    const HWND button = GetDlgItem(box, id);
    const bool shown =
        button != nullptr && (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE) != 0;
    if (!shown) continue;
    buttons += (buttons.empty() ? "" : "/") + std::string(name);
  }
  // A box of one button gives it the number of Cancel, so that Escape closes it.
  return buttons == "Cancel" ? "OK" : buttons;
}

}  // namespace

BoxClicker::BoxClicker(const MessageBox& box, BoxAnswer answer)
    : thread_([this, box, button = idOf(answer)] { wait(box, button); }) {}

BoxClicker::~BoxClicker() {
  if (thread_.joinable()) thread_.join();
}

std::string BoxClicker::trouble() {
  if (thread_.joinable()) thread_.join();
  return trouble_;
}

void BoxClicker::wait(const MessageBox& box, int button) {
  HWND found = nullptr;
  for (int i = 0; i < longest_wait && found == nullptr; ++i) {
    found = boxOfThisProcess();
    if (found == nullptr) Sleep(5);
  }
  if (found == nullptr) return;
  trouble_.clear();
  constexpr int text_item = 0xFFFF;
  if (textOf(found) != box.title) trouble_ = "title: " + textOf(found);
  const std::string text = textOf(GetDlgItem(found, text_item));
  if (text != box.text) trouble_ += " text: " + text;
  if (buttonsOf(found) != boxButtonsText(box.buttons)) trouble_ += " buttons: " + buttonsOf(found);
  PostMessageW(found, WM_COMMAND, static_cast<WPARAM>(button), 0);
  while (IsWindow(found) != FALSE) Sleep(1);
}

}  // namespace depcalc::testing
