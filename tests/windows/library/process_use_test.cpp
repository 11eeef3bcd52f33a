#include "tests/windows/library/process_use.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>

namespace depcalc::windows {
namespace {

TEST(ProcessUse, SeesEachThingThatIsHeldAndThatItGoes) {
  processUse();
  const ProcessUse before = processUse();
  HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  EXPECT_EQ(processUse().handles, before.handles + 1);
  HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  EXPECT_EQ(processUse().gdi_objects, before.gdi_objects + 1);
  auto bytes = std::make_unique<char[]>(5);
  EXPECT_GE(processUse().heap_bytes, before.heap_bytes + 5);
  bytes.reset();
  DeleteObject(brush);
  CloseHandle(event);
  EXPECT_EQ(processUse(), before);
}

TEST(ProcessUse, SeesAWindow) {
  const auto make = [](DWORD style, HWND parent) {
    return CreateWindowExW(0, L"STATIC", nullptr, style, 0, 0, 1, 1, parent, nullptr, nullptr,
                           nullptr);
  };
  const HWND first = make(WS_POPUP, nullptr);  // brings windows of the system's with it
  const std::size_t before = processUse().windows;
  const HWND window = make(WS_POPUP, nullptr);
  make(WS_CHILD, window);
  EXPECT_EQ(processUse().windows, before + 2);
  DestroyWindow(window);
  EXPECT_EQ(processUse().windows, before);
  DestroyWindow(first);
}

}  // namespace
}  // namespace depcalc::windows
