// What assistive tools find.
#include <oleacc.h>

#include "tests/windows/controls/native_fixture.h"
#include "windows/com/com_text.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An object and one of its children, CHILDID_SELF for itself.
class Found {
 public:
  Found(IAccessible* object, long child) : object_(object), child_(child) { object_->AddRef(); }
  Found(const Found& other) : Found(other.object_, other.child_) {}
  Found& operator=(const Found&) = delete;
  ~Found() { object_->Release(); }

  [[nodiscard]] std::string text(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT,
                                                                               BSTR*)) const {
    BSTR given = nullptr;
    EXPECT_TRUE(SUCCEEDED((object_->*get)(id(), &given)));
    std::string text = textFromBstr(given);
    SysFreeString(given);
    return text;
  }
  [[nodiscard]] std::string name() const { return text(&IAccessible::get_accName); }
  [[nodiscard]] std::string value() const { return text(&IAccessible::get_accValue); }
  [[nodiscard]] long number(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT,
                                                                          VARIANT*)) const {
    VARIANT given{};
    EXPECT_EQ((object_->*get)(id(), &given), S_OK);
    EXPECT_EQ(given.vt, VT_I4);
    return given.lVal;
  }
  [[nodiscard]] long role() const { return number(&IAccessible::get_accRole); }
  [[nodiscard]] long state() const { return number(&IAccessible::get_accState); }
  [[nodiscard]] HRESULT press() const { return object_->accDoDefaultAction(id()); }
  [[nodiscard]] IAccessible& object() const { return *object_; }
  [[nodiscard]] VARIANT id() const { return idOf(child_); }
  static VARIANT idOf(long value) {
    VARIANT id{};
    id.vt = VT_I4;
    id.lVal = value;
    return id;
  }

 private:
  IAccessible* object_;
  long child_;
};

struct NativeAccessible : NativeTest {
  static Found objectOf(HWND window) {
    IAccessible* object = nullptr;
    EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                         reinterpret_cast<void**>(&object)),
              S_OK);
    const Found found(object, CHILDID_SELF);
    object->Release();
    return found;
  }
  /// All children of a page, those with windows of their own by their own objects.
  static std::vector<Found> childrenOf(const Found& page) {
    long count = 0;
    EXPECT_EQ(page.object().get_accChildCount(&count), S_OK);
    std::vector<Found> found;
    for (long i = 1; i <= count; ++i) {
      IDispatch* own = nullptr;
      if (page.object().get_accChild(Found::idOf(i), &own) != S_OK) {
        found.emplace_back(&page.object(), i);
        continue;
      }
      IAccessible* object = nullptr;
      EXPECT_EQ(own->QueryInterface(IID_IAccessible, reinterpret_cast<void**>(&object)), S_OK);
      found.emplace_back(object, CHILDID_SELF);
      object->Release();
      own->Release();
    }
    return found;
  }
  Found named(const std::string& name, long role) {
    for (const Found& child : childrenOf(objectOf(window->windowOf(screen())))) {
      if (child.name() == name && child.role() == role) return child;
    }
    ADD_FAILURE() << name;
    return objectOf(window->windowOf(screen()));
  }
};

TEST_F(NativeAccessible, NamesAndRolesAreWhatTheModelSays) {
  std::vector<std::string> told;
  for (const Found& child : childrenOf(objectOf(window->windowOf(screen())))) {
    told.push_back(child.name() + " " + std::to_string(child.role()));
  }
  const auto line = [](const char* name, long role) { return name + (" " + std::to_string(role)); };
  EXPECT_THAT(
      told, ElementsAre(
                line("Frame", ROLE_SYSTEM_GRAPHIC), line("A small screen:", ROLE_SYSTEM_STATICTEXT),
                line("Name", ROLE_SYSTEM_LINK), line("Using this screen", ROLE_SYSTEM_LINK),
                line("Name", ROLE_SYSTEM_TEXT), line("AmountText", ROLE_SYSTEM_TEXT),
                line("KindList", ROLE_SYSTEM_COMBOBOX), line("First", ROLE_SYSTEM_RADIOBUTTON),
                line("Second", ROLE_SYSTEM_RADIOBUTTON), line("Table", ROLE_SYSTEM_TABLE),
                line("Box", ROLE_SYSTEM_GRAPHIC), line("Go on", ROLE_SYSTEM_PUSHBUTTON)));
}

TEST_F(NativeAccessible, ValuesAndStatesFollowTheModel) {
  screen().NameText.setText("Lathe");
  screen().KindList.setIndex(2);
  screen().SecondOption.setValue(true);
  EXPECT_EQ(named("Name", ROLE_SYSTEM_TEXT).value(), "Lathe");
  EXPECT_EQ(named("KindList", ROLE_SYSTEM_COMBOBOX).value(), "Three");
  EXPECT_NE(named("Second", ROLE_SYSTEM_RADIOBUTTON).state() & STATE_SYSTEM_CHECKED, 0);
  EXPECT_EQ(named("First", ROLE_SYSTEM_RADIOBUTTON).state() & STATE_SYSTEM_CHECKED, 0);
  hands->moveFocus(screen().NameText);
  EXPECT_NE(named("Name", ROLE_SYSTEM_TEXT).state() & STATE_SYSTEM_FOCUSED, 0);
  EXPECT_EQ(named("Go on", ROLE_SYSTEM_PUSHBUTTON).text(&IAccessible::get_accKeyboardShortcut),
            "Alt+G");
  EXPECT_EQ(named("Name", ROLE_SYSTEM_TEXT).text(&IAccessible::get_accDescription),
            "F1 explains this field");
}

TEST_F(NativeAccessible, ActionsAreClicks) {
  EXPECT_EQ(named("Name", ROLE_SYSTEM_LINK).press(), S_OK);
  EXPECT_EQ(named("Go on", ROLE_SYSTEM_PUSHBUTTON).press(), S_OK);
  EXPECT_EQ(named("Second", ROLE_SYSTEM_RADIOBUTTON).press(), S_OK);
  EXPECT_THAT(screen().said, ElementsAre("help name", "go"));
  EXPECT_TRUE(screen().SecondOption.value());
  EXPECT_EQ(named("A small screen:", ROLE_SYSTEM_STATICTEXT).press(), DISP_E_MEMBERNOTFOUND);
}

TEST_F(NativeAccessible, AGridIsATableOfItsCells) {
  screen().Table.setText(0, 1, "TRK-014");
  screen().Table.setText(2, 0, "Basis");
  screen().Table.setText(2, 1, "38,450.00");
  const Found table = objectOf(window->windowOf(screen().Table));
  long count = 0;
  ASSERT_EQ(table.object().get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 12);
  const Found cell(&table.object(), 1 + 2 * 3 + 1);
  EXPECT_EQ(cell.name(), "Basis, TRK-014");
  EXPECT_EQ(cell.value(), "38,450.00");
  EXPECT_EQ(cell.role(), ROLE_SYSTEM_CELL);
  EXPECT_EQ(cell.press(), S_OK);
  EXPECT_EQ(screen().Table.row(), 2);
  EXPECT_EQ(screen().Table.column(), 1);
  EXPECT_THAT(screen().said, ElementsAre("cell"));
  long place[4] = {};
  VARIANT hit{};
  ASSERT_EQ(table.object().accLocation(&place[0], &place[1], &place[2], &place[3], cell.id()),
            S_OK);
  ASSERT_EQ(table.object().accHitTest(place[0] + place[2] / 2, place[1] + place[3] / 2, &hit),
            S_OK);
  EXPECT_EQ(hit.lVal, cell.id().lVal);
}

TEST_F(NativeAccessible, AnswersWrongCallsAndOutlivesTheWindow) {
  const Found page = objectOf(window->windowOf(screen()));
  BSTR text = nullptr;
  VARIANT wrong{};
  EXPECT_EQ(page.object().get_accName(wrong, &text), E_INVALIDARG);
  EXPECT_EQ(page.object().get_accName(Found::idOf(99), &text), E_INVALIDARG);
  EXPECT_EQ(page.object().get_accName(Found::idOf(-1), &text), E_INVALIDARG);
  EXPECT_EQ(page.object().get_accName(Found::idOf(0), nullptr), E_POINTER);
  EXPECT_EQ(page.object().get_accChildCount(nullptr), E_POINTER);
  EXPECT_EQ(page.object().accLocation(nullptr, nullptr, nullptr, nullptr, Found::idOf(0)),
            E_POINTER);
  EXPECT_EQ(page.object().QueryInterface(IID_IAccessible, nullptr), E_POINTER);
  hands = nullptr;
  window = nullptr;
  EXPECT_EQ(page.object().get_accName(Found::idOf(0), &text), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(page.press(), CO_E_OBJNOTCONNECTED);
}

}  // namespace
}  // namespace depcalc::testing
