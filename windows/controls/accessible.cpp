#include "windows/controls/accessible.h"

#include <oleacc.h>

#include <atomic>
#include <optional>

#include "controls/accessible_text.h"
#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_button.h"
#include "controls/text_box.h"
#include "windows/com/com_text.h"
#include "windows/com/module_count.h"
#include "windows/controls/grid_window.h"
#include "windows/controls/page_window.h"

namespace depcalc::native {
namespace {

/// Whatever fails in `body` is an HRESULT: nothing may be thrown at a client.
template <typename Body>
HRESULT answered(Body body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT give(BSTR* result, const std::string& text) {
  *result = text.empty() ? nullptr : newBstr(text);
  return text.empty() ? S_FALSE : S_OK;
}

/// A control, or a cell of a grid.
struct Element {
  Control* control = nullptr;
  int row = -1;
  int column = -1;

  [[nodiscard]] bool isCell() const { return row >= 0; }
  [[nodiscard]] const Grid& grid() const { return static_cast<const Grid&>(*control); }
};

long roleOf(const Element& element) {
  if (element.isCell()) return ROLE_SYSTEM_CELL;
  switch (element.control->kind()) {
    case ControlKind::label:
      return static_cast<const Label&>(*element.control).clickable() ? ROLE_SYSTEM_LINK
                                                                     : ROLE_SYSTEM_STATICTEXT;
    case ControlKind::textBox:
      return ROLE_SYSTEM_TEXT;
    case ControlKind::dropDownList:
      return ROLE_SYSTEM_COMBOBOX;
    case ControlKind::optionButton:
      return ROLE_SYSTEM_RADIOBUTTON;
    case ControlKind::pictureButton:
      return ROLE_SYSTEM_PUSHBUTTON;
    case ControlKind::grid:
      return ROLE_SYSTEM_TABLE;
    case ControlKind::userControl:
      return ROLE_SYSTEM_GROUPING;
    default:
      return ROLE_SYSTEM_GRAPHIC;
  }
}

/// The captions of its row and column; a caption's own text.
std::string cellName(const Grid& grid, int row, int column) {
  if (row == 0 || column == 0) return std::string(grid.text(row, column));
  std::string name(grid.text(row, 0));
  const std::string_view heading = grid.text(0, column);
  if (!name.empty() && !heading.empty()) name += ", ";
  return name.append(heading);
}

std::string nameOf(const Element& element) {
  if (element.isCell()) return cellName(element.grid(), element.row, element.column);
  return accessibleName(*element.control);
}

std::string valueOf(const Element& element) {
  if (element.isCell()) return std::string(element.grid().text(element.row, element.column));
  if (element.control->kind() == ControlKind::textBox) {
    return static_cast<const TextBox&>(*element.control).text();
  }
  if (element.control->kind() == ControlKind::dropDownList) {
    return static_cast<const DropDownList&>(*element.control).text();
  }
  return {};
}

bool isClicked(const Control& control) {
  if (control.kind() == ControlKind::label) return static_cast<const Label&>(control).clickable();
  return control.kind() == ControlKind::pictureButton ||
         control.kind() == ControlKind::optionButton;
}

bool isPressedTwin(const Control& control) {
  return control.kind() == ControlKind::pictureButton &&
         static_cast<const PictureButton&>(control).under() != nullptr;
}

long stateOf(const Element& element, const Surface& surface) {
  const Control& control = *element.control;
  long state = control.isShown() ? 0 : STATE_SYSTEM_INVISIBLE;
  if (element.isCell()) {
    const Grid& grid = element.grid();
    const bool current = grid.row() == element.row && grid.column() == element.column;
    state |= STATE_SYSTEM_READONLY | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    if (current) state |= STATE_SYSTEM_SELECTED;
    return current && grid.hasFocus() ? state | STATE_SYSTEM_FOCUSED : state;
  }
  if (const auto* const input = dynamic_cast<const InputControl*>(&control)) {
    state |= STATE_SYSTEM_FOCUSABLE;
    if (input->hasFocus() && surface.keysAt() == nullptr) state |= STATE_SYSTEM_FOCUSED;
  }
  if (surface.keysAt() == &control) state |= STATE_SYSTEM_FOCUSED;
  if (isClicked(control)) state |= STATE_SYSTEM_FOCUSABLE;
  if (roleOf(element) == ROLE_SYSTEM_LINK) state |= STATE_SYSTEM_LINKED;
  if (control.kind() == ControlKind::optionButton &&
      static_cast<const OptionButton&>(control).value()) {
    state |= STATE_SYSTEM_CHECKED;
  }
  return state;
}

class Accessible final : public IAccessible {
 public:
  explicit Accessible(ControlWindow& window) : window_(window.shared_from_this()) {}

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == IID_IAccessible;
    *result = known ? static_cast<IAccessible*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // IDispatch: assistive tools call the methods themselves.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

  // IAccessible
  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
    return on(parent, [&](ControlWindow& window) {
      ControlWindow* const above = window.control().parent() == nullptr
                                       ? nullptr
                                       : window.surface().window(*window.control().parent());
      if (above != nullptr) return handOut(*above, parent);
      return AccessibleObjectFromWindow(window.surface().frame(), static_cast<DWORD>(OBJID_WINDOW),
                                        IID_IDispatch, reinterpret_cast<void**>(parent));
    });
  }
  HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override {
    return on(count, [&](ControlWindow& window) {
      *count = childCount(window);
      return S_OK;
    });
  }
  /// Those that have a window of their own have an object of their own.
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT id, IDispatch** child) override {
    return on(child, [&](ControlWindow& window) {
      *child = nullptr;
      const std::optional<Element> element = elementOf(window, id);
      if (!element) return E_INVALIDARG;
      if (id.lVal == CHILDID_SELF) return handOut(window, child);
      ControlWindow* const own = window.surface().window(*element->control);
      return element->isCell() || own == nullptr ? S_FALSE : handOut(*own, child);
    });
  }
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* name) override {
    return at(id, name,
              [&](ControlWindow&, const Element& element) { return give(name, nameOf(element)); });
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* value) override {
    return at(id, value, [&](ControlWindow&, const Element& element) {
      return give(value, valueOf(element));
    });
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* description) override {
    return at(id, description, [&](ControlWindow&, const Element& element) {
      return give(description, element.isCell() ? "" : accessibleDescription(*element.control));
    });
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* role) override {
    return at(id, role, [&](ControlWindow&, const Element& element) {
      role->vt = VT_I4;
      role->lVal = roleOf(element);
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* state) override {
    return at(id, state, [&](ControlWindow& window, const Element& element) {
      state->vt = VT_I4;
      state->lVal = stateOf(element, window.surface());
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) override { return nothing(help); }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, long* topic) override {
    if (topic != nullptr) *topic = 0;
    return nothing(file);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT id, BSTR* key) override {
    return at(id, key, [&](ControlWindow&, const Element& element) {
      const char letter = element.isCell() ? '\0' : element.control->mnemonic();
      return give(key, letter == 0 ? "" : std::string("Alt+") + letter);
    });
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
    return on(child, [&](ControlWindow& window) { return focusIn(window, *child); });
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
    return on(children, [&](ControlWindow& window) {
      VariantInit(children);
      if (window.control().kind() != ControlKind::grid) return S_FALSE;
      const auto& grid = static_cast<const Grid&>(window.control());
      children->vt = VT_I4;
      children->lVal = 1 + grid.row() * grid.columns() + grid.column();
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* action) override {
    return at(id, action, [&](ControlWindow&, const Element& element) {
      const bool acts = element.isCell() || isClicked(*element.control);
      return give(action, !acts ? "" : roleOf(element) == ROLE_SYSTEM_LINK ? "Jump" : "Press");
    });
  }
  HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT id) override {
    return at(id, &id, [&](ControlWindow& window, const Element& element) {
      auto* const input = dynamic_cast<InputControl*>(element.control);
      if ((flags & SELFLAG_TAKEFOCUS) == 0 || input == nullptr) return E_INVALIDARG;
      window.surface().act([input](User& user) { user.moveFocus(*input); });
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                        VARIANT id) override {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) {
      return E_POINTER;
    }
    return at(id, left, [&](ControlWindow& window, const Element& element) {
      const RECT area = areaOf(window, element);
      *left = area.left;
      *top = area.top;
      *width = area.right - area.left;
      *height = area.bottom - area.top;
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE accNavigate(long, VARIANT, VARIANT* target) override {
    if (target == nullptr) return E_POINTER;
    VariantInit(target);
    return DISP_E_MEMBERNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE accHitTest(long x, long y, VARIANT* child) override {
    return on(child, [&](ControlWindow& window) { return hit(window, {x, y}, *child); });
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override {
    return at(id, &id, [](ControlWindow& window, const Element& element) {
      if (!element.isCell() && !isClicked(*element.control)) return DISP_E_MEMBERNOTFOUND;
      window.surface().act([&element](User& user) {
        if (!element.isCell()) return user.click(*element.control);
        user.clickCell(static_cast<Grid&>(*element.control), element.row, element.column);
      });
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT id, BSTR value) override {
    return at(id, &id, [value](ControlWindow& window, const Element& element) {
      auto* const box = dynamic_cast<TextBox*>(element.control);
      if (box == nullptr) return DISP_E_MEMBERNOTFOUND;
      window.surface().act([box, value](User& user) {
        if (user.moveFocus(*box)) user.edit(*box, textFromBstr(value));
      });
      return S_OK;
    });
  }

 private:
  ~Accessible() = default;

  static HRESULT nothing(BSTR* text) {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    return S_FALSE;
  }

  template <typename Result, typename Body>
  HRESULT on(Result* result, Body body) {
    if (result == nullptr) return E_POINTER;
    return answered([&]() -> HRESULT {
      const auto window = window_.lock();
      if (window == nullptr || !window->alive()) return CO_E_OBJNOTCONNECTED;
      return body(*window);
    });
  }
  template <typename Result, typename Body>
  HRESULT at(const VARIANT& id, Result* result, Body body) {
    return on(result, [&](ControlWindow& window) -> HRESULT {
      const std::optional<Element> element = elementOf(window, id);
      return element ? body(window, *element) : E_INVALIDARG;
    });
  }

  static HRESULT handOut(ControlWindow& window, IDispatch** result) {
    *result = new Accessible(window);
    return S_OK;
  }

  /// In the order of Tab. Of a button and its pressed picture only the button is one.
  static std::vector<Control*> childrenOf(const ControlWindow& window) {
    std::vector<Control*> found;
    if (window.control().kind() != ControlKind::userControl) return found;
    for (Control* child : static_cast<UserControl&>(window.control()).children()) {
      if (child->visible() && !isPressedTwin(*child)) found.push_back(child);
    }
    return found;
  }
  static long childCount(const ControlWindow& window) {
    if (window.control().kind() != ControlKind::grid) {
      return static_cast<long>(childrenOf(window).size());
    }
    const auto& grid = static_cast<const Grid&>(window.control());
    return static_cast<long>(grid.rows()) * grid.columns();
  }
  static std::optional<Element> elementOf(const ControlWindow& window, const VARIANT& id) {
    if (id.vt != VT_I4 || id.lVal < 0 || id.lVal > childCount(window)) return std::nullopt;
    if (id.lVal == CHILDID_SELF) return Element{&window.control()};
    const long index = id.lVal - 1;
    if (window.control().kind() == ControlKind::grid) {
      const int columns = static_cast<const Grid&>(window.control()).columns();
      return Element{&window.control(), static_cast<int>(index / columns),
                     static_cast<int>(index % columns)};
    }
    return Element{childrenOf(window)[static_cast<std::size_t>(index)]};
  }

  static RECT areaOf(const ControlWindow& window, const Element& element) {
    RECT area{};
    const ControlWindow* const own = window.surface().window(*element.control);
    if (element.isCell()) {
      area = static_cast<const GridWindow&>(window).cellArea(element.row, element.column);
    } else if (own != nullptr) {
      GetWindowRect(own->handle(), &area);
      return area;
    } else {
      area = window.areaOf(*element.control);
    }
    MapWindowPoints(window.handle(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
  }

  static HRESULT focusIn(ControlWindow& window, VARIANT& child) {
    VariantInit(&child);
    const InputControl* const focused = window.surface().stage().focused();
    if (focused == &window.control()) {
      child.vt = VT_I4;
      child.lVal = CHILDID_SELF;
      return S_OK;
    }
    const auto children = childrenOf(window);
    for (std::size_t i = 0; i < children.size(); ++i) {
      if (children[i] == window.surface().keysAt()) {
        child.vt = VT_I4;
        child.lVal = static_cast<long>(i) + 1;
        return S_OK;
      }
      ControlWindow* const own = window.surface().window(*children[i]);
      if (children[i] != focused || own == nullptr) continue;
      child.vt = VT_DISPATCH;
      return handOut(*own, &child.pdispVal);
    }
    return S_FALSE;
  }

  static HRESULT hit(ControlWindow& window, POINT at, VARIANT& child) {
    VariantInit(&child);
    for (long id = childCount(window); id >= 0; --id) {
      VARIANT number{};
      number.vt = VT_I4;
      number.lVal = id;
      const RECT area = areaOf(window, *elementOf(window, number));
      if (PtInRect(&area, at) == FALSE) continue;
      child = number;
      return S_OK;
    }
    return S_FALSE;
  }

  ModuleUse in_use_;
  std::atomic<ULONG> references_{1};
  std::weak_ptr<ControlWindow> window_;
};

}  // namespace

LRESULT accessibleResult(ControlWindow& window, WPARAM wide) {
  auto* const made = new (std::nothrow) Accessible(window);
  if (made == nullptr) return 0;
  const LRESULT result = LresultFromObject(IID_IAccessible, wide, made);
  made->Release();
  return result;
}

}  // namespace depcalc::native
