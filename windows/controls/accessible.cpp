#include "windows/controls/accessible.h"

#include <oleacc.h>

#include <functional>
#include <optional>

#include "controls/text_box.h"
#include "windows/com/com_object.h"
#include "windows/com/com_text.h"
#include "windows/controls/accessible_children.h"

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

HRESULT give(VARIANT* result, long number) {
  VariantInit(result);
  result->vt = VT_I4;
  result->lVal = number;
  return S_OK;
}

HRESULT give(VARIANT* result, std::optional<long> number) {
  if (number) return give(result, *number);
  VariantInit(result);
  return S_FALSE;
}

class Accessible final : public windows::ComObject<IAccessible> {
 public:
  explicit Accessible(ControlWindow& window) : window_(window.shared_from_this()) {}

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
      *count = AccessibleChildren(window).count();
      return S_OK;
    });
  }
  /// Those that have a window of their own have an object of their own.
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT id, IDispatch** child) override {
    return on(child, [&](ControlWindow& window) {
      *child = nullptr;
      const AccessibleChildren children(window);
      const std::optional<AccessibleElement> element = children.find(id);
      if (!element) return E_INVALIDARG;
      ControlWindow* const own = children.windowOf(*element);
      return own == nullptr ? S_FALSE : handOut(*own, child);
    });
  }
  HRESULT STDMETHODCALLTYPE get_accName(VARIANT id, BSTR* name) override {
    return tell(id, name, &AccessibleElement::name);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT id, BSTR* value) override {
    return tell(id, value, &AccessibleElement::value);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT id, BSTR* description) override {
    return tell(id, description, &AccessibleElement::description);
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT id, VARIANT* role) override {
    return at(id, role, [&](const ControlWindow&, const AccessibleElement& element) {
      return give(role, element.role());
    });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT id, VARIANT* state) override {
    return at(id, state, [&](const ControlWindow& window, const AccessibleElement& element) {
      return give(state, element.state(window.surface()));
    });
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) override { return nothing(help); }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, long* topic) override {
    if (topic != nullptr) *topic = 0;
    return nothing(file);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT id, BSTR* key) override {
    return tell(id, key, &AccessibleElement::shortcut);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
    return on(child, [&](ControlWindow& window) {
      const AccessibleChildren children(window);
      const std::optional<long> focused = children.focused();
      if (!focused || *focused == CHILDID_SELF) return give(child, focused);
      ControlWindow* const own = children.windowOf(children[*focused]);
      if (own == nullptr) return give(child, focused);
      VariantInit(child);
      child->vt = VT_DISPATCH;
      return handOut(*own, &child->pdispVal);
    });
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
    return on(children, [&](ControlWindow& window) {
      return give(children, AccessibleChildren(window).selected());
    });
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT id, BSTR* action) override {
    return tell(id, action, &AccessibleElement::defaultAction);
  }
  HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT id) override {
    return at(id, &id, [&](ControlWindow& window, const AccessibleElement& element) {
      auto* const input = dynamic_cast<InputControl*>(&element.control());
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
    return at(id, left, [&](ControlWindow& window, const AccessibleElement& element) {
      const RECT area = AccessibleChildren(window).areaOf(element);
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
    return on(child, [&](ControlWindow& window) {
      return give(child, AccessibleChildren(window).under({x, y}));
    });
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT id) override {
    return at(id, &id, [](ControlWindow& window, const AccessibleElement& element) {
      if (!element.isClicked()) return DISP_E_MEMBERNOTFOUND;
      window.surface().act([&element](User& user) { element.click(user); });
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT id, BSTR value) override {
    return at(id, &id, [value](ControlWindow& window, const AccessibleElement& element) {
      auto* const box = dynamic_cast<TextBox*>(&element.control());
      if (box == nullptr) return DISP_E_MEMBERNOTFOUND;
      window.surface().act([box, value](User& user) {
        if (user.moveFocus(*box)) user.edit(*box, textFromBstr(value));
      });
      return S_OK;
    });
  }

 private:
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
      const auto element = AccessibleChildren(window).find(id);
      return element ? body(window, *element) : E_INVALIDARG;
    });
  }
  template <typename Property>
  HRESULT tell(const VARIANT& id, BSTR* result, Property property) {
    return at(id, result, [&](const ControlWindow&, const AccessibleElement& element) {
      return give(result, std::invoke(property, element));
    });
  }

  static HRESULT handOut(ControlWindow& window, IDispatch** result) {
    *result = new Accessible(window);
    return S_OK;
  }

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
