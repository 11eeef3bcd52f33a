#include "windows/controls/control_window.h"

#include <algorithm>

#include "controls/accessible_text.h"
#include "controls/overhang.h"
#include "controls/user_control.h"
#include "windows/com/com_text.h"
#include "windows/controls/accessible.h"
#include "windows/controls/realized_palette.h"
#include "windows/controls/screen_window.h"

namespace depcalc::native {
namespace {

constexpr const wchar_t* class_name = L"DepCalcControl";
constexpr const wchar_t* property = L"DepCalcControlWindow";

/// No window may be much larger than this; one whose control is, covers what is to be seen of it.
constexpr int largest = 16000;  // pixels

/// The outermost control has room for what reaches beyond its edges.
Place placeOf(const Control& control) {
  return control.parent() == nullptr ? placeWithOverhang(static_cast<const UserControl&>(control))
                                     : control.place();
}

}  // namespace

HINSTANCE thisModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&thisModule), &module);
  return module;
}

const wchar_t* registeredClass(HINSTANCE module) {
  WNDCLASSEXW made{};
  made.cbSize = sizeof made;
  made.style = CS_DBLCLKS;
  made.lpfnWndProc = ControlWindow::procedure;
  made.hInstance = module;
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.lpszClassName = class_name;
  RegisterClassExW(&made);
  return class_name;
}

void unregisterClass(HINSTANCE module) { UnregisterClassW(class_name, module); }

ControlWindow::ControlWindow(Control& control, Surface& surface)
    : control_(control),
      surface_(surface.shared_from_this()),
      observation_(control.observe([this](Aspect aspect) { changed(aspect); })) {
  surface_->add(control_, *this);
}

ControlWindow::~ControlWindow() {
  surface_->remove(control_);
  if (handle_ != nullptr) DestroyWindow(handle_);
}

void ControlWindow::createOwn(HWND parent, DWORD style) {
  const HINSTANCE module = thisModule();
  attach(CreateWindowExW(0, registeredClass(module), utf16(accessibleName(control_)).c_str(),
                         style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent, nullptr, module,
                         nullptr));
}

void ControlWindow::createNative(HWND parent, const wchar_t* class_of, DWORD style) {
  attach(CreateWindowExW(0, class_of, L"", style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, parent,
                         nullptr, thisModule(), nullptr));
}

void ControlWindow::attach(HWND window) {
  handle_ = window;
  if (window == nullptr) return;
  SetPropW(window, property, this);
  original_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
      window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::procedure)));
  if (control_.visible()) ShowWindow(window, SW_SHOWNA);
}

ControlWindow* ControlWindow::of(HWND handle) {
  return static_cast<ControlWindow*>(GetPropW(handle, property));
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM low) {
  ControlWindow* const found = of(window);
  if (found == nullptr) return DefWindowProcW(window, message, wide, low);
  const auto kept = found->shared_from_this();
  if (message == WM_NCDESTROY) {
    RemovePropW(window, property);
    const LRESULT result = found->original(message, wide, low);
    found->handle_ = nullptr;
    return result;
  }
  if (!found->surface_->alive()) return found->original(message, wide, low);
  return found->handleMessage(message, wide, low);
}

LRESULT ControlWindow::original(UINT message, WPARAM wide, LPARAM low) {
  if (handle_ == nullptr) return 0;
  if (original_ == nullptr || original_ == &ControlWindow::procedure) {
    return DefWindowProcW(handle_, message, wide, low);
  }
  return CallWindowProcW(original_, handle_, message, wide, low);
}

LRESULT ControlWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const LRESULT result = original(message, wide, low);
      if (!alive()) return result;
      const HWND window = handle_;
      surface_->focusMoved(reinterpret_cast<HWND>(wide), message == WM_SETFOCUS);
      if (alive() && message == WM_SETFOCUS) {
        PostMessageW(surface_->frame(), ask_focus_message, reinterpret_cast<WPARAM>(window), 0);
      }
      return result;
    }
    case WM_ERASEBKGND:
      return 1;
    case WM_GETOBJECT:
      if (static_cast<LONG>(low) == OBJID_CLIENT) return accessibleResult(*this, wide);
      break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      if (pageKey(message, wide, low)) return 0;
      break;
    case WM_SYSCHAR:
      if (surface_->swallowsCharacter()) return 0;
      break;
    default:
      break;
  }
  return original(message, wide, low);
}

bool ControlWindow::pageKey(UINT message, WPARAM key, LPARAM low) {
  const auto kept = surface_;
  const bool alt = message == WM_SYSKEYDOWN && (low & 1 << 29) != 0;
  const bool handled = kept->handleKey(key, alt);
  kept->setSwallowsCharacter(handled);
  return handled;
}

void ControlWindow::changed(Aspect aspect) {
  if (!alive()) return;
  const auto kept = shared_from_this();
  switch (aspect) {
    case Aspect::visible:
      // The system would look for the next window to take the focus; here nothing has it until the
      // model says.
      if (!control_.visible() && surface_->hasFocus() &&
          (GetFocus() == handle_ || IsChild(handle_, GetFocus()) != FALSE)) {
        surface_->forgetKeys();
        SetFocus(surface_->frame());
      }
      if (!alive()) return;
      ShowWindow(handle_, control_.visible() ? SW_SHOWNA : SW_HIDE);
      // Not only a user's action brings up a screen: its paint is due in any case.
      surface_->paintAtIdle();
      break;
    case Aspect::place:
      place(around_);
      break;
    case Aspect::stacking:
      SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      break;
    case Aspect::focus:
      if (static_cast<InputControl&>(control_).hasFocus() ||
          surface_->stage().focused() == nullptr) {
        surface_->followFocus();
      }
      break;
    default:
      break;
  }
  if (!alive()) return;
  apply(aspect);
  if (alive() && (aspect == Aspect::place || aspect == Aspect::visible)) {
    ScreenWindow::contentChanged(*surface_, control_);
  }
}

void ControlWindow::place(const Around& around) {
  around_ = around;
  if (handle_ == nullptr) return;
  const RECT area = surface_->zoom().rect(placeOf(control_), around.corner);
  RECT window = windowArea(area);
  if (window.right - window.left > largest || window.bottom - window.top > largest) {
    IntersectRect(&window, &window, &around.seen);
  }
  corner_ = {area.left - window.left, area.top - window.top};
  SetWindowPos(handle_, nullptr, window.left, window.top, window.right - window.left,
               window.bottom - window.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::restyle() {
  apply(Aspect::font);
  apply(Aspect::colours);
  repaint();
}

RECT ControlWindow::areaOf(const Control& /*control*/) const {
  RECT area{};
  if (handle_ != nullptr) GetClientRect(handle_, &area);
  return area;
}

void ControlWindow::reveal(const Control& control) {
  if (!alive() || control.kind() == ControlKind::grid) return;
  RECT area = areaOf(control);
  MapWindowPoints(handle_, surface_->frame(), reinterpret_cast<POINT*>(&area), 2);
  ScreenWindow::reveal(*surface_, area);
}

void ControlWindow::askModel() {
  auto* const input = dynamic_cast<InputControl*>(&control_);
  if (!alive() || GetFocus() != handle_) return;
  if (input == nullptr || input->hasFocus()) return;
  surface_->act([input](User& user) { user.moveFocus(*input); });
  if (alive() && !input->hasFocus()) surface_->followFocus();
}

void ControlWindow::repaint() {
  if (handle_ != nullptr) InvalidateRect(handle_, nullptr, FALSE);
}

void ControlWindow::paintBuffered(const std::function<void(const Canvas&, const RECT&)>& draw) {
  PAINTSTRUCT due{};
  const HDC window = BeginPaint(handle_, &due);
  const int width = due.rcPaint.right - due.rcPaint.left;
  const int height = due.rcPaint.bottom - due.rcPaint.top;
  if (width > 0 && height > 0) {
    const MemoryDc buffer(window);
    const BitmapHandle bitmap(CreateCompatibleBitmap(window, width, height));
    const HGDIOBJ former = SelectObject(buffer.get(), bitmap.get());
    const RealizedPalette palette(window, buffer.get(), control_);
    SetViewportOrgEx(buffer.get(), -due.rcPaint.left, -due.rcPaint.top, nullptr);
    {
      const Canvas canvas = surface_->canvas(buffer.get());
      draw(canvas, due.rcPaint);
    }
    SetViewportOrgEx(buffer.get(), 0, 0, nullptr);
    BitBlt(window, due.rcPaint.left, due.rcPaint.top, width, height, buffer.get(), 0, 0, SRCCOPY);
    SelectObject(buffer.get(), former);
  }
  EndPaint(handle_, &due);
}

}  // namespace depcalc::native
