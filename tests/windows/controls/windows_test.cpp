// The windows of each kind of control, and what a user's keys and mouse do to them.
#include "tests/windows/controls/native_fixture.h"
#include "windows/com/com_text.h"
#include "windows/controls/grid_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using NativeWindows = NativeTest;

constexpr LPARAM alt_held = 1 << 29;

std::string classOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return textFromUtf16(name);
}

std::string textOf(HWND window) {
  wchar_t text[256] = {};
  GetWindowTextW(window, text, 256);
  return textFromUtf16(text);
}

TEST_F(NativeWindows, AreTheSystemsOwnForWhatTakesTheFocus) {
  EXPECT_EQ(classOf(window->windowOf(screen().NameText)), "Edit");
  EXPECT_EQ(classOf(window->windowOf(screen().KindList)), "ComboBox");
  const HWND option = window->windowOf(screen().FirstOption);
  EXPECT_EQ(classOf(option), "Button");
  EXPECT_EQ(GetWindowLongPtrW(option, GWL_STYLE) & BS_TYPEMASK, BS_RADIOBUTTON);
  const HWND page = window->windowOf(screen());
  for (const Control* drawn :
       {static_cast<Control*>(&screen().NameLabel),
        static_cast<Control*>(&screen().GoButton.normal), static_cast<Control*>(&screen().Frame)}) {
    EXPECT_EQ(window->windowOf(*drawn), page) << drawn->name();
  }
}

TEST_F(NativeWindows, FollowTheModel) {
  screen().NameText.setText("Lathe");
  EXPECT_EQ(textOf(window->windowOf(screen().NameText)), "Lathe");
  screen().KindList.setIndex(2);
  EXPECT_EQ(SendMessageW(window->windowOf(screen().KindList), CB_GETCURSEL, 0, 0), 2);
  screen().FirstOption.setValue(true);
  EXPECT_EQ(SendMessageW(window->windowOf(screen().FirstOption), BM_GETCHECK, 0, 0), BST_CHECKED);
  screen().NameText.hide();
  EXPECT_FALSE(IsWindowVisible(window->windowOf(screen().NameText)));
  screen().Table.setPlace({600, 3000, 6000, 1500});
  RECT area{};
  GetWindowRect(window->windowOf(screen().Table), &area);
  EXPECT_EQ(area.right - area.left, 400);
  EXPECT_EQ(area.bottom - area.top, 100);
}

TEST_F(NativeWindows, AreWalkedByTabInTheOrderOfTheFieldsAndOnToButtonsAndLinks) {
  std::vector<std::string> visited;
  for (int i = 0; i < 9; ++i) {
    EXPECT_TRUE(accelerator(WM_KEYDOWN, VK_TAB));
    visited.push_back(keys());
  }
  EXPECT_THAT(visited, ElementsAre("NameText", "AmountText", "KindList", "FirstOption",
                                   "SecondOption", "Table", "GoButton", "HelpLabel", "NameText"));
  const HeldKey shift(VK_SHIFT);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(accelerator(WM_KEYDOWN, VK_TAB));
  EXPECT_EQ(focused(), "Table");
}

TEST_F(NativeWindows, TakeTheKeysThatMeanTheSameEverywhere) {
  hands->moveFocus(screen().NameText);
  EXPECT_TRUE(accelerator(WM_SYSKEYDOWN, 'G', alt_held));
  EXPECT_THAT(screen().said, ElementsAre("go"));
  EXPECT_TRUE(accelerator(WM_KEYDOWN, VK_F1));
  EXPECT_THAT(screen().said, ElementsAre("go", "help name"));
  EXPECT_FALSE(accelerator(WM_SYSKEYDOWN, 'Q', alt_held)) << "nobody's";
  EXPECT_FALSE(accelerator(WM_KEYDOWN, VK_F5)) << "the host's";
  EXPECT_FALSE(accelerator(WM_KEYDOWN, 'A')) << "a letter is text";
  EXPECT_EQ(screen().NameText.text(), "");
}

TEST_F(NativeWindows, PressTheButtonOrLinkThatHasTheKeys) {
  hands->moveFocus(screen().Table);
  accelerator(WM_KEYDOWN, VK_TAB);
  ASSERT_EQ(keys(), "GoButton");
  EXPECT_EQ(focused(), "Table") << "the focus stays";
  hands->press(VK_SPACE);
  EXPECT_THAT(screen().said, ElementsAre("go"));
  accelerator(WM_KEYDOWN, VK_TAB);
  hands->press(VK_RETURN);
  EXPECT_THAT(screen().said, ElementsAre("go", "help"));
}

TEST_F(NativeWindows, OfferEachKeyToTheModelBeforeItIsText) {
  screen().NameText.onKeyPress = [](char32_t key, bool& discard) { discard = key == U'x'; };
  hands->moveFocus(screen().NameText);
  hands->type("axb\xF0\x9F\x98\x80");
  EXPECT_EQ(screen().NameText.text(), "ab\xF0\x9F\x98\x80") << "two units are one key";
  std::vector<char32_t> seen;
  screen().NameText.onKeyPress = [&seen](char32_t key, bool&) { seen.push_back(key); };
  hands->type("\xF0\x9F\x98\x80");
  EXPECT_THAT(seen, ElementsAre(0x1F600));
}

TEST_F(NativeWindows, ShowWhatTheModelMakesOfAnEdit) {
  screen().NameText.onChange = [this] {
    if (screen().NameText.text() == "no") screen().NameText.setText("");
  };
  hands->moveFocus(screen().NameText);
  hands->type("no");
  EXPECT_EQ(textOf(window->windowOf(screen().NameText)), "");
  hands->type("yes");
  EXPECT_EQ(screen().NameText.text(), "yes");
  int changes = 0;
  screen().NameText.onChange = [&changes] { ++changes; };
  hands->paste("pasted");
  EXPECT_EQ(screen().NameText.text(), "pasted");
  EXPECT_EQ(changes, 1);
}

TEST_F(NativeWindows, LeaveTheFocusWhereAValidationKeepsIt) {
  hands->moveFocus(screen().NameText);
  screen().NameText.onValidate = [](bool& cancel) { cancel = true; };
  for (InputControl* other : {static_cast<InputControl*>(&screen().AmountText),
                              static_cast<InputControl*>(&screen().KindList),
                              static_cast<InputControl*>(&screen().FirstOption),
                              static_cast<InputControl*>(&screen().Table)}) {
    hands->moveFocus(*other);
    EXPECT_EQ(focused(), "NameText") << other->name();
    EXPECT_EQ(keys(), "NameText") << other->name();
  }
  hands->chooseItem(screen().KindList, 1);
  EXPECT_EQ(screen().KindList.index(), DropDownList::none);
  hands->click(screen().SecondOption);
  EXPECT_FALSE(screen().SecondOption.value());
}

TEST_F(NativeWindows, ChooseFromAListByArrowsAndByOpeningIt) {
  hands->moveFocus(screen().KindList);
  hands->press(VK_DOWN);
  EXPECT_EQ(screen().KindList.text(), "One");
  int changes = 0;
  screen().KindList.onChange = [&changes] { ++changes; };
  hands->chooseItem(screen().KindList, 2);
  EXPECT_EQ(screen().KindList.text(), "Three");
  EXPECT_EQ(changes, 1) << "not each item on the way";
  const HWND list = window->windowOf(screen().KindList);
  SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
  SendMessageW(list, WM_KEYDOWN, VK_HOME, 1);
  SendMessageW(list, WM_KEYDOWN, VK_ESCAPE, 1);
  hands->idle();
  EXPECT_EQ(screen().KindList.text(), "Three") << "given up";
  EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 2);
  SendMessageW(list, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(screen().KindList.text(), "Three") << "nor by the wheel";
}

TEST_F(NativeWindows, GiveUpAPressThatIsReleasedElsewhere) {
  screen().GoButton.normal.onMouseDown = nullptr;
  hands->mouseDown(screen().GoButton.normal);
  hands->mouseUp(nullptr);
  EXPECT_THAT(screen().said, IsEmpty());
  hands->click(screen().FirstOption);
  EXPECT_TRUE(screen().FirstOption.value());
  hands->mouseDown(screen().SecondOption);
  hands->mouseUp(nullptr);
  EXPECT_FALSE(screen().SecondOption.value());
}

TEST_F(NativeWindows, GrowWithTheResolution) {
  const HWND name = window->windowOf(screen().NameText);
  const auto sizeOf = [](HWND at) {
    RECT area{};
    GetWindowRect(at, &area);
    return SIZE{area.right - area.left, area.bottom - area.top};
  };
  const SIZE before = sizeOf(name);
  const SIZE whole = window->size();
  int told = 0;
  native::Surface::Events events;
  events.resized = [&told] { ++told; };
  seat(std::move(events));
  window->setDpi(192);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(window->size().cx, 2 * whole.cx);
  const SIZE after = sizeOf(window->windowOf(screen().NameText));
  EXPECT_NEAR(after.cx, 2 * before.cx, 4);
  EXPECT_GT(after.cy, before.cy * 3 / 2);
  SendMessageW(window->handle(), 0x02E3, 0, 0);
  EXPECT_EQ(window->dpi(), 96) << "as the monitor has it";
}

TEST_F(NativeWindows, ScrollAGridOf32767ColumnsAtOnce) {
  Grid& grid = screen().Table;
  grid.setRedraw(false);
  grid.setRows(30);
  grid.setColumns(32767);
  for (int column = 0; column < grid.columns(); ++column) {
    for (int row = 0; row < grid.rows(); ++row) grid.setText(row, column, "1,234.00");
  }
  grid.setRedraw(true);
  screen().setSize(32767 * Grid::default_column_width + 1200, 12000);
  model->root.setSize(screen().width(), screen().height());
  grid.setSize(32767 * Grid::default_column_width + 30, 30 * Grid::default_row_height + 30);
  hands->idle();
  const ULONGLONG start = GetTickCount64();
  SendMessageW(window->handle(), WM_HSCROLL, SB_BOTTOM, 0);
  RedrawWindow(top.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  EXPECT_LT(GetTickCount64() - start, 1000U);
  hands->clickCell(grid, 29, 32766);
  EXPECT_EQ(grid.column(), 32766);
  EXPECT_EQ(grid.row(), 29);
  SendMessageW(window->handle(), WM_HSCROLL, SB_TOP, 0);
  hands->clickCell(grid, 1, 2);
  EXPECT_EQ(grid.column(), 2);
}

TEST_F(NativeWindows, KeepCaptionsInSightThatThePageScrolledAway) {
  Grid& grid = screen().Table;
  grid.setColumns(60);
  grid.setRows(20);
  screen().setSize(60 * Grid::default_column_width + 1200, 12000);
  model->root.setSize(screen().width(), screen().height());
  grid.setSize(60 * Grid::default_column_width, 20 * Grid::default_row_height);
  hands->idle();
  SendMessageW(window->handle(), WM_HSCROLL, SB_BOTTOM, 0);
  const HWND table = window->windowOf(grid);
  POINT edge{5, 0};
  MapWindowPoints(window->handle(), table, &edge, 1);
  SendMessageW(table, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge.x, 3 * 16 + 5));
  EXPECT_EQ(grid.column(), 0) << "the caption lies there";
  EXPECT_EQ(grid.row(), 3);
}

TEST_F(NativeWindows, MayBeDestroyedInsideAnyOfTheirEvents) {
  const auto destroy = [this] {
    hands = nullptr;
    window = nullptr;
    model = nullptr;
  };
  const auto anew = [this] {
    model = std::make_shared<SmallModel>();
    seat();
  };
  const auto message = [](HWND to, UINT what, WPARAM wide, LPARAM low) {
    SendMessageW(to, what, wide, low);
    MSG pending{};
    while (PeekMessageW(&pending, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&pending);
  };
  const auto centre = [this](const Control& control) {
    const RECT area = window->areaOf(control);
    return MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  };

  screen().GoButton.normal.onMouseDown = destroy;
  message(window->windowOf(screen()), WM_LBUTTONDOWN, MK_LBUTTON, centre(screen().GoButton.normal));
  EXPECT_EQ(window, nullptr);

  anew();
  screen().NameLabel.onClick = destroy;
  const LPARAM label = centre(screen().NameLabel);
  const HWND page = window->windowOf(screen());
  SendMessageW(page, WM_LBUTTONDOWN, MK_LBUTTON, label);
  message(page, WM_LBUTTONUP, 0, label);
  EXPECT_EQ(window, nullptr);

  anew();
  hands->moveFocus(screen().NameText);
  screen().NameText.onKeyPress = [&](char32_t, bool&) { destroy(); };
  message(GetFocus(), WM_CHAR, L'a', 1);
  EXPECT_EQ(window, nullptr);

  anew();
  hands->moveFocus(screen().NameText);
  screen().NameText.onChange = destroy;
  message(GetFocus(), WM_CHAR, L'a', 1);
  EXPECT_EQ(window, nullptr);

  anew();
  hands->moveFocus(screen().NameText);
  screen().NameText.onValidate = [&](bool&) { destroy(); };
  message(window->windowOf(screen().AmountText), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  EXPECT_EQ(window, nullptr);

  anew();
  hands->moveFocus(screen().KindList);
  screen().KindList.onChange = destroy;
  message(GetFocus(), WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(window, nullptr);

  anew();
  screen().FirstOption.onClick = destroy;
  const HWND option = window->windowOf(screen().FirstOption);
  SendMessageW(option, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  message(option, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_EQ(window, nullptr);

  anew();
  screen().Table.onClick = destroy;
  message(window->windowOf(screen().Table), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
  EXPECT_EQ(window, nullptr);

  anew();
  native::Surface::Events events;
  events.acted = destroy;
  seat(std::move(events));
  MSG tab{GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
  static_cast<void>(window->translateAccelerator(tab));
  EXPECT_EQ(window, nullptr);
}

TEST_F(NativeWindows, OutliveTheirParentWindow) {
  DestroyWindow(window->handle());
  EXPECT_EQ(window->handle(), nullptr);
  screen().NameText.setText("still");
  screen().Table.setRows(9);
  screen().hide();
  EXPECT_EQ(window->windowOf(screen().NameText), nullptr);
  window->setDpi(192);
  window->takeFocus();
  EXPECT_FALSE(window->hasFocus());
}

TEST_F(NativeWindows, TellWhenTheFocusComesAndGoes) {
  std::vector<std::string> told;
  const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                     top.handle(), nullptr, nullptr, nullptr);
  SetFocus(other);
  native::Surface::Events events;
  events.focus = [&told](bool in) { told.emplace_back(in ? "in" : "out"); };
  seat(std::move(events));
  hands->moveFocus(screen().NameText);
  hands->moveFocus(screen().AmountText);
  SetFocus(other);
  screen().NameText.SetFocus();
  EXPECT_EQ(GetFocus(), other) << "the model's focus moves nothing outside";
  EXPECT_EQ(told.front(), "in");
  EXPECT_EQ(told.back(), "out");
  DestroyWindow(other);
}

/// Whether a window of that handle belongs to this program; every other has windows as well.
bool isOwnWindow(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId();
}

/// Of any kind; the system's table has an entry for each.
struct Handles {
  int drawing = 0;
  int windows = 0;
};

Handles countHandles() {
  Handles handles;
  for (std::uintptr_t i = 1; i < 0x10000; ++i) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(i)) != 0) ++handles.drawing;
    if (isOwnWindow(reinterpret_cast<HWND>(i))) ++handles.windows;
  }
  return handles;
}

TEST_F(NativeWindows, LeaveNoHandleBehindIn1000Rounds) {
  const auto painted = [this] {
    seat();
    screen().NameText.setText("a");
    RedrawWindow(top.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    hands = nullptr;
    window = nullptr;
    screen().NameText.setText("");
  };
  // Never shown, a window costs the display nothing; looking for a family takes longer than all
  // else.
  const std::wstring family = native::usualFamily();
  const auto made = [this, &family] {
    window = std::make_unique<native::ScreenWindow>(
        top.handle(), model->root, model, native::Surface::Events{}, native::Ambient{family, {}});
    screen().NameText.setText("a");
    window = nullptr;
    screen().NameText.setText("");
  };
  const Handles at_first = countHandles();
  const native::PenHandle counted(CreatePen(PS_SOLID, 1, 0));
  ASSERT_EQ(countHandles().drawing, at_first.drawing + 1) << "or nothing is measured";
  const auto rounds = [&](int most, int painted_of_them) {
    for (int i = 0; i < most; ++i) i < painted_of_them ? painted() : made();
  };
  rounds(12, 4);
  const Handles before = countHandles();
  rounds(1000, 30);
  const Handles after = countHandles();
  EXPECT_EQ(after.drawing, before.drawing);
  EXPECT_EQ(after.windows, before.windows);
}

}  // namespace
}  // namespace depcalc::testing
