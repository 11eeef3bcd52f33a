#include "tests/windows/host/box_answerer.h"

#include <windows.h>

#include <array>
#include <chrono>

#include "windows/com/com_text.h"

namespace depcalc::testing_support {
namespace {

constexpr int text_of_the_box = 0xFFFF;

BOOL CALLBACK ifBoxOfThisProcess(HWND window, LPARAM found) {
  std::array<wchar_t, 16> name{};
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  const bool is_box = process == GetCurrentProcessId() && std::wstring(L"#32770") == name.data() &&
                      IsWindowVisible(window) && GetDlgItem(window, text_of_the_box) != nullptr;
  if (is_box) *reinterpret_cast<HWND*>(found) = window;
  return is_box ? FALSE : TRUE;
}

std::string textOf(HWND window) {
  std::array<wchar_t, 1024> text{};
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return textFromUtf16({text.data(), static_cast<std::size_t>(length)});
}

}  // namespace

BoxAnswerer::BoxAnswerer()
    : thread_([this] {
        while (!done_) {
          answerOne();
          std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
      }) {}

BoxAnswerer::~BoxAnswerer() {
  done_ = true;
  thread_.join();
}

void BoxAnswerer::answerOne() {
  HWND box = nullptr;
  EnumWindows(ifBoxOfThisProcess, reinterpret_cast<LPARAM>(&box));
  if (box == nullptr) return;
  {
    const std::lock_guard lock(mutex_);
    boxes_.push_back(textOf(box) + ": " + textOf(GetDlgItem(box, text_of_the_box)));
  }
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  while (IsWindow(box) && !done_) std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

std::vector<std::string> BoxAnswerer::boxes() {
  const std::lock_guard lock(mutex_);
  return boxes_;
}

}  // namespace depcalc::testing_support
