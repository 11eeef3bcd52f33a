#include "windows/controls/screen_window.h"

#include <algorithm>

#include "controls/overhang.h"
#include "windows/controls/drop_down_list_window.h"
#include "windows/controls/grid_window.h"
#include "windows/controls/keys.h"
#include "windows/controls/option_window.h"
#include "windows/controls/page_window.h"
#include "windows/controls/picture_box_window.h"
#include "windows/controls/text_box_window.h"

namespace depcalc::native {
namespace {

constexpr const wchar_t* frame_class = L"DepCalcFrame";
constexpr const wchar_t* frame_property = L"DepCalcScreenWindow";
constexpr int reveal_margin = 12;  // pixels left around what is to be seen
constexpr int line_pixels = 24;
constexpr UINT dpi_changed_message = 0x02E3;  // WM_DPICHANGED_AFTERPARENT

/// Of the monitor that the window is on, where the system tells; else of the screen.
int dpiOf(HWND window) {
  using GetDpi = UINT(WINAPI*)(HWND);
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const auto get =
      reinterpret_cast<GetDpi>(reinterpret_cast<void*>(GetProcAddress(user, "GetDpiForWindow")));
  if (get != nullptr && get(window) != 0) return static_cast<int>(get(window));
  const HDC screen = GetDC(window);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(window, screen);
  return dpi;
}

}  // namespace

int scrolledPosition(const SCROLLINFO& bar, int code, int line) {
  const int page = std::max(line, static_cast<int>(bar.nPage) - line);
  switch (code) {
    case SB_LINEUP:
      return bar.nPos - line;
    case SB_LINEDOWN:
      return bar.nPos + line;
    case SB_PAGEUP:
      return bar.nPos - page;
    case SB_PAGEDOWN:
      return bar.nPos + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return bar.nTrackPos;
    case SB_TOP:
      return bar.nMin;
    case SB_BOTTOM:
      return bar.nMax;
    default:
      return bar.nPos;
  }
}

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
  makeWindows(root, frame);
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

std::shared_ptr<ControlWindow> makeWindow(Control& control, Surface& surface) {
  switch (control.kind()) {
    case ControlKind::textBox:
      return std::make_shared<TextBoxWindow>(static_cast<TextBox&>(control), surface);
    case ControlKind::dropDownList:
      return std::make_shared<DropDownListWindow>(static_cast<DropDownList&>(control), surface);
    case ControlKind::optionButton:
      return std::make_shared<OptionWindow>(static_cast<OptionButton&>(control), surface);
    case ControlKind::pictureBox:
      return std::make_shared<PictureBoxWindow>(static_cast<PictureBox&>(control), surface);
    case ControlKind::grid:
      return std::make_shared<GridWindow>(static_cast<Grid&>(control), surface);
    case ControlKind::userControl:
      return std::make_shared<PageWindow>(static_cast<UserControl&>(control), surface);
    default:
      return nullptr;
  }
}

void ScreenWindow::makeWindows(UserControl& page, HWND parent) {
  auto window = makeWindow(page, *surface_);
  windows_.push_back(window);
  window->create(parent);
  std::vector<Control*> children = page.children();
  std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
    return a->stacking() < b->stacking();
  });
  for (Control* child : children) {
    if (child->kind() == ControlKind::userControl) {
      makeWindows(static_cast<UserControl&>(*child), window->handle());
    } else if (auto inside = makeWindow(*child, *surface_)) {
      windows_.push_back(inside);
      inside->create(window->handle());
    }
    // What is made later lies in front.
    ControlWindow* const made = surface_->window(*child);
    if (made == nullptr || made->handle() == nullptr) continue;
    SetWindowPos(made->handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
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
  showScrollBars(content);
  RECT client{};
  GetClientRect(frame, &client);
  const RECT root = surface_->zoom().rect(surface_->root().place());
  const LONG middle = (client.right - (root.right - root.left)) / 2;
  const LONG left = std::max<LONG>(0, std::min(middle, client.right - content.cx));
  if (ControlWindow* const page = surface_->window(surface_->root())) {
    page->place({{left - scrolled_.x - root.left, -scrolled_.y - root.top}, client});
  }
  laying_out_ = false;
}

void ScreenWindow::showScrollBars(const SIZE& content) {
  const int thick = GetSystemMetrics(SM_CXVSCROLL);
  RECT window{};
  GetWindowRect(handle(), &window);
  SIZE whole{window.right - window.left, window.bottom - window.top};
  bool across = content.cx > whole.cx;
  const bool down = content.cy > whole.cy - (across ? thick : 0);
  across = content.cx > whole.cx - (down ? thick : 0);
  if (across) whole.cy -= thick;
  if (down) whole.cx -= thick;
  scrolled_.x = std::clamp<LONG>(scrolled_.x, 0, std::max<LONG>(0, content.cx - whole.cx));
  scrolled_.y = std::clamp<LONG>(scrolled_.y, 0, std::max<LONG>(0, content.cy - whole.cy));
  SCROLLINFO horizontal{sizeof(SCROLLINFO),
                        SIF_RANGE | SIF_PAGE | SIF_POS,
                        0,
                        content.cx - 1,
                        static_cast<UINT>(whole.cx),
                        scrolled_.x,
                        0};
  SCROLLINFO vertical{sizeof(SCROLLINFO),
                      SIF_RANGE | SIF_PAGE | SIF_POS,
                      0,
                      content.cy - 1,
                      static_cast<UINT>(whole.cy),
                      scrolled_.y,
                      0};
  ShowScrollBar(handle(), SB_HORZ, across ? TRUE : FALSE);
  ShowScrollBar(handle(), SB_VERT, down ? TRUE : FALSE);
  if (across) SetScrollInfo(handle(), SB_HORZ, &horizontal, TRUE);
  if (down) SetScrollInfo(handle(), SB_VERT, &vertical, TRUE);
}

void ScreenWindow::scroll(int bar, int position) {
  (bar == SB_HORZ ? scrolled_.x : scrolled_.y) = position;
  layOut();
}

void ScreenWindow::scrollBy(UINT message, WPARAM code) {
  const int bar = message == WM_HSCROLL ? SB_HORZ : SB_VERT;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(handle(), bar, &info);
  scroll(bar, scrolledPosition(info, LOWORD(code), line_pixels));
}

void ScreenWindow::wheel(WPARAM wide) {
  constexpr int lines = 3;
  const int turned = static_cast<short>(HIWORD(wide));
  scroll(SB_VERT, scrolled_.y - turned * lines * line_pixels / WHEEL_DELTA);
}

void ScreenWindow::reveal(Surface& surface, const RECT& area) {
  ScreenWindow* const window = of(surface.frame());
  if (window == nullptr) return;
  RECT client{};
  GetClientRect(surface.frame(), &client);
  const auto moved = [](LONG low, LONG high, LONG room) -> LONG {
    if (low < 0) return low - reveal_margin;
    return high > room ? std::min(high - room, low) + reveal_margin : 0;
  };
  const LONG right = moved(area.left, area.right, client.right);
  const LONG down = moved(area.top, area.bottom, client.bottom);
  if (right == 0 && down == 0) return;
  window->scrolled_.x += right;
  window->scrolled_.y += down;
  window->layOut();
}

/// A screen comes up from its top left; help that appears beside it is to be seen.
void ScreenWindow::contentChanged(Surface& surface, const Control& control) {
  ScreenWindow* const window = of(surface.frame());
  if (window == nullptr || control.kind() != ControlKind::userControl) return;
  const bool outermost = control.parent() == nullptr;
  const bool appears = !outermost && control.visible();
  if (appears && !floats(control)) window->scrolled_ = {};
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
      scrollBy(message, wide);
      return 0;
    case WM_MOUSEWHEEL:
      wheel(wide);
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
