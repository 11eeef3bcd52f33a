#include "windows/controls/screen_window.h"

#include <algorithm>

#include "controls/overhang.h"
#include "windows/controls/drop_down_list_window.h"
#include "windows/controls/keys.h"
#include "windows/controls/monitor_dpi.h"
#include "windows/controls/window_making.h"

namespace depcalc::native {
namespace {

constexpr const wchar_t* frame_class = L"DepCalcFrame";
constexpr const wchar_t* frame_property = L"DepCalcScreenWindow";

}  // namespace

ScreenWindow::ScreenWindow(HWND parent, UserControl& root, std::shared_ptr<void> model,
                           Surface::Events events, Ambient ambient)
    : surface_(std::make_shared<Surface>(root, std::move(model), std::move(events),
                                         std::move(ambient))) {
  WNDCLASSEXW made{};
  made.cbSize = sizeof made;
  made.lpfnWndProc = ScreenWindow::procedure;
  made.hInstance = thisModule();
  made.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  made.lpszClassName = frame_class;
  RegisterClassExW(&made);
  const HWND frame = CreateWindowExW(WS_EX_CONTROLPARENT, frame_class, L"DepCalc10",
                                     WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                                     parent, nullptr, made.hInstance, nullptr);
  if (frame == nullptr) return;
  SetPropW(frame, frame_property, this);
  surface_->setFrame(frame);
  surface_->setDpi(dpiOf(frame));
  windows_ = makeWindows(root, *surface_, frame);
  layOut();
  surface_->paintAtIdle();
}

ScreenWindow::~ScreenWindow() {
  const HWND frame = surface_->frame();
  surface_->end();
  if (frame != nullptr) {
    RemovePropW(frame, frame_property);
    DestroyWindow(frame);
  }
  windows_.clear();
  unregisterClass(thisModule());
  UnregisterClassW(frame_class, thisModule());
}

ScreenWindow* ScreenWindow::of(HWND frame) {
  return static_cast<ScreenWindow*>(GetPropW(frame, frame_property));
}

SIZE ScreenWindow::contentSize() const {
  const Place place = placeWithOverhang(surface_->root());
  const RECT area = surface_->zoom().rect({0, 0, place.width, place.height});
  return {area.right, area.bottom};
}

SIZE ScreenWindow::size() const { return contentSize(); }

void ScreenWindow::place(const RECT& at) {
  SetWindowPos(handle(), nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ScreenWindow::show(bool visible) { ShowWindow(handle(), visible ? SW_SHOWNA : SW_HIDE); }

/// In the middle as long as all of it is to be seen, and further to the left where help beside it
/// needs the room.
void ScreenWindow::layOut() {
  const HWND frame = handle();
  if (frame == nullptr || laying_out_) return;
  laying_out_ = true;  // showing a scroll bar is another size
  const SIZE content = contentSize();
  scrolling_.fit(frame, content);
  RECT client{};
  GetClientRect(frame, &client);
  const RECT root = surface_->zoom().rect(surface_->root().place());
  const LONG middle = (client.right - (root.right - root.left)) / 2;
  const LONG left = std::max<LONG>(0, std::min(middle, client.right - content.cx));
  if (ControlWindow* const page = surface_->window(surface_->root())) {
    const POINT scrolled = scrolling_.position();
    page->place({{left - scrolled.x - root.left, -scrolled.y - root.top}, client});
  }
  laying_out_ = false;
}

void ScreenWindow::reveal(Surface& surface, const RECT& area) {
  ScreenWindow* const window = of(surface.frame());
  if (window == nullptr) return;
  if (window->scrolling_.reveal(surface.frame(), area)) window->layOut();
}

/// A screen comes up from its top left; help that appears beside it is to be seen.
void ScreenWindow::contentChanged(Surface& surface, const Control& control) {
  ScreenWindow* const window = of(surface.frame());
  if (window == nullptr || control.kind() != ControlKind::userControl) return;
  const bool outermost = control.parent() == nullptr;
  const bool appears = !outermost && control.visible();
  if (appears && !floats(control)) window->scrolling_.toTopLeft();
  window->layOut();
  if (appears && floats(control)) {
    RECT area{};
    GetWindowRect(window->windowOf(control), &area);
    MapWindowPoints(nullptr, surface.frame(), reinterpret_cast<POINT*>(&area), 2);
    reveal(surface, area);
  }
  if (outermost || floats(control)) surface.tellResized();
}

void ScreenWindow::takeFocus() {
  const auto surface = surface_;
  if (!surface->alive()) return;
  SetFocus(surface->frame());
  surface->followFocus();
}

void ScreenWindow::leave() {
  const auto surface = surface_;
  surface->act([](User& user) { user.leave(); });
}

bool ScreenWindow::translateAccelerator(MSG& message) {
  if (!isKeyDown(message.message) || handle() == nullptr) return false;
  if (message.hwnd != handle() && IsChild(handle(), message.hwnd) == FALSE) return false;
  const auto surface = surface_;
  const ControlWindow* const at = ControlWindow::of(message.hwnd);
  const bool open_list = at != nullptr && at->control().kind() == ControlKind::dropDownList &&
                         SendMessageW(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0;
  const bool alt = message.message == WM_SYSKEYDOWN;
  surface->setSwallowsCharacter(false);
  if (!open_list && surface->handleKey(message.wParam, alt)) return true;
  const bool letter = message.wParam == VK_ESCAPE && at == nullptr;
  if (alt || !isControlsOwn(message.wParam) || letter) return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

void ScreenWindow::restyle() {
  const auto kept = windows_;
  for (const auto& window : kept) window->restyle();
  layOut();
  surface_->tellResized();
}

void ScreenWindow::setAmbient(const Ambient& ambient) {
  surface_->setAmbient(ambient);
  restyle();
}

void ScreenWindow::setDpi(int dpi) {
  if (dpi <= 0 || dpi == surface_->dpi()) return;
  surface_->setDpi(dpi);
  restyle();
}

HWND ScreenWindow::windowOf(const Control& control) const {
  const ControlWindow* found = surface_->window(control);
  if (found == nullptr && control.parent() != nullptr) found = surface_->window(*control.parent());
  return found == nullptr ? nullptr : found->handle();
}

RECT ScreenWindow::areaOf(const Control& control) const {
  const ControlWindow* const own = surface_->window(control);
  if (own != nullptr && own->handle() != nullptr) {
    RECT area{};
    GetClientRect(own->handle(), &area);
    return area;
  }
  const ControlWindow* const page =
      control.parent() == nullptr ? nullptr : surface_->window(*control.parent());
  return page == nullptr ? RECT{} : page->areaOf(control);
}

/// While no control has the focus the first arrow goes to the first one, the next move in it.
bool ScreenWindow::restingKey(UINT message, WPARAM key) {
  const bool alt = message == WM_SYSKEYDOWN;
  const auto surface = surface_;
  const bool handled = surface->handleKey(key, alt);
  surface->setSwallowsCharacter(handled);
  if (handled || alt || !surface->alive() || !directionOf(key).has_value()) return handled;
  surface->handleKey(VK_TAB, false);
  return true;
}

void ScreenWindow::ownMessage(UINT message, WPARAM wide) {
  const auto surface = surface_;
  ControlWindow* const window = ControlWindow::of(reinterpret_cast<HWND>(wide));
  const auto kept = window == nullptr ? nullptr : window->shared_from_this();
  if (message == paint_due_message) {
    surface->pumpPaint();
  } else if (kept != nullptr && message == ask_focus_message) {
    kept->askModel();
  } else if (kept != nullptr && message == list_closed_message) {
    static_cast<DropDownListWindow&>(*kept).listClosed();
  }
}

LRESULT CALLBACK ScreenWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM low) {
  ScreenWindow* const found = of(window);
  if (found == nullptr) return DefWindowProcW(window, message, wide, low);
  if (message == WM_NCDESTROY) {
    RemovePropW(window, frame_property);
    found->surface_->end();
    return DefWindowProcW(window, message, wide, low);
  }
  return found->handleMessage(window, message, wide, low);
}

LRESULT ScreenWindow::handleMessage(HWND window, UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_SIZE:
      layOut();
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      scrolling_.useBar(window, message, wide);
      layOut();
      return 0;
    case WM_MOUSEWHEEL:
      scrolling_.turnWheel(wide);
      layOut();
      return 0;
    case WM_ERASEBKGND: {
      RECT client{};
      GetClientRect(window, &client);
      const BrushHandle brush(CreateSolidBrush(surface_->tones().base()));
      FillRect(reinterpret_cast<HDC>(wide), &client, brush.get());
      return 1;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const auto surface = surface_;
      surface->focusMoved(reinterpret_cast<HWND>(wide), message == WM_SETFOCUS);
      const bool follows = surface->alive() && message == WM_SETFOCUS;
      if (follows && surface->stage().focused() != nullptr) surface->followFocus();
      return 0;
    }
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      if (restingKey(message, wide)) return 0;
      break;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
      surface_->refreshTones();
      restyle();
      InvalidateRect(window, nullptr, TRUE);
      return 0;
    case dpi_changed_message:
      setDpi(dpiOf(window));
      return 0;
    case paint_due_message:
    case ask_focus_message:
    case list_closed_message:
      ownMessage(message, wide);
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window, message, wide, low);
}

}  // namespace depcalc::native
