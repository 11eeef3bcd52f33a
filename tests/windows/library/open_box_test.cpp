// A host that ends, or lets go of a control, while a message box of the control's is open.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/windows/library/hosted_control.h"

namespace depcalc::windows {
namespace {

BOOL CALLBACK keepBox(HWND window, LPARAM found) {
  std::array<wchar_t, 16> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (std::wstring(L"#32770") == name.data() && IsWindowVisible(window) != FALSE)
    *reinterpret_cast<HWND*>(found) = window;
  return TRUE;
}

HWND openBox() {
  HWND box = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), keepBox, reinterpret_cast<LPARAM>(&box));
  return box;
}

/// While it lives, does something about each box that opens, once, from inside the box's own loop.
class InsideBoxes {
 public:
  explicit InsideBoxes(std::function<void(HWND)> act) : timer_(SetTimer(nullptr, 0, 10, tick)) {
    action() = std::move(act);
  }
  ~InsideBoxes() {
    KillTimer(nullptr, timer_);
    action() = nullptr;
  }
  InsideBoxes(const InsideBoxes&) = delete;
  InsideBoxes& operator=(const InsideBoxes&) = delete;

 private:
  static std::function<void(HWND)>& action() {
    static std::function<void(HWND)> of_this_test;
    return of_this_test;
  }
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = openBox();
    if (box != nullptr && action()) action()(box);
  }

  UINT_PTR timer_;
};

BOOL CALLBACK keepField(HWND window, LPARAM fields) {
  std::array<wchar_t, 16> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (_wcsicmp(name.data(), L"Edit") == 0)
    reinterpret_cast<std::vector<HWND>*>(fields)->push_back(window);
  return TRUE;
}

class OpenBox : public testing::Test {
 protected:
  Library library;
  ComPtr<IUnknown> form = library.make(__uuidof(::DepCalcCtl));
  ComPtr<ICalculateDep> record = library.make<ICalculateDep>(__uuidof(::CalculateDep));
  std::optional<EventConnection> connection;
  std::optional<HostedControl> hosted;
  int boxes = 0;

  void SetUp() override {
    connection.emplace(*form.Get(), [&](DISPID member, VARIANTARG** arguments, std::size_t) {
      if (member != 1) return;
      *V_DISPATCHREF(arguments[0]) = ComPtr<ICalculateDep>(record).Detach();
      *V_DATEREF(arguments[1]) = 45291;  // 31 December 2023
    });
    hosted.emplace(form);
    deliverMessages();
  }

  /// Types what is no date and too long a life into one field after the other: a box comes.
  void typeNonsense() {
    std::vector<HWND> fields;
    EnumChildWindows(hosted->window(), keepField, reinterpret_cast<LPARAM>(&fields));
    ASSERT_FALSE(fields.empty());
    for (const HWND field : fields) {
      SetFocus(field);
      deliverMessages();
      if (boxes > 0) return;
      for (int i = 0; i < 5; ++i) SendMessageW(field, WM_CHAR, L'9', 1);
      deliverMessages();
      if (boxes > 0) return;
    }
  }
  /// The host keeps nothing of the library's.
  void letGo() {
    connection.reset();
    hosted.reset();
    form.Reset();
    record.Reset();
  }
};

TEST_F(OpenBox, ClosesWithItsHost) {
  HWND seen = nullptr;
  bool unloadable_meanwhile = true;
  const InsideBoxes inside([&](HWND box) {
    if (++boxes > 1) return;
    seen = box;
    letGo();
    unloadable_meanwhile = library.canUnload();
  });
  typeNonsense();
  deliverMessages();
  EXPECT_EQ(boxes, 1);
  EXPECT_FALSE(IsWindow(seen));
  EXPECT_FALSE(unloadable_meanwhile);  // the box is still to return into the library
  EXPECT_TRUE(library.canUnload());
}

TEST_F(OpenBox, CanStillBeAnsweredWhereItsControlIsGone) {
  const HostedControl other_page(library.make(__uuidof(::DepCalcPopup)));
  HWND seen = nullptr;
  HWND window = nullptr;
  const InsideBoxes inside([&](HWND box) {
    if (++boxes == 1) {
      seen = box;
      window = hosted->window();
      ComPtr<IOleObject> object;
      form.As(&object);
      object->Close(OLECLOSE_NOSAVE);
      object->SetClientSite(nullptr);
      EXPECT_FALSE(IsWindow(window));
    }
    PostMessageW(box, WM_COMMAND, IDOK, 0);
    if (boxes == 1) form.Reset();
  });
  typeNonsense();
  deliverMessages();
  EXPECT_GE(boxes, 1);
  EXPECT_FALSE(IsWindow(seen));
  EXPECT_TRUE(IsWindowEnabled(hosted->page()));
  EXPECT_TRUE(IsWindow(other_page.window()));
  letGo();
}

}  // namespace
}  // namespace depcalc::windows
