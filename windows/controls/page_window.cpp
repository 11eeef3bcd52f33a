#include "windows/controls/page_window.h"

#include <windowsx.h>

#include <algorithm>

#include "windows/controls/control_drawing.h"

namespace depcalc::native {
namespace {

bool isDrawn(const Control& control) {
  return control.kind() == ControlKind::label || control.kind() == ControlKind::shape ||
         control.kind() == ControlKind::pictureButton;
}

/// What the page draws of it: all, or what surrounds its window.
bool isDrawnAround(const Control& control) {
  return isDrawn(control) || control.kind() == ControlKind::textBox;
}

POINT pointOf(LPARAM low) { return {GET_X_LPARAM(low), GET_Y_LPARAM(low)}; }

}  // namespace

std::vector<Control*> backToFront(const UserControl& page) {
  std::vector<Control*> children = page.children();
  std::stable_sort(children.begin(), children.end(), [](const Control* a, const Control* b) {
    return a->stacking() < b->stacking();
  });
  return children;
}

PageWindow::PageWindow(UserControl& control, Surface& surface)
    : ControlWindow(control, surface), page_(control) {
  for (Control* child : page_.children()) {
    if (!isDrawnAround(*child)) continue;
    observations_.push_back(child->observe([this, child](Aspect) {
      // Where it was before is not known any more.
      if (isDrawn(*child)) {
        repaint();
      } else {
        repaintControl(*child);
      }
    }));
  }
}

void PageWindow::create(HWND parent) { createOwn(parent, WS_CLIPCHILDREN); }

void PageWindow::place(const Around& around) {
  const POINT before = corner();
  ControlWindow::place(around);
  const POINT now = corner();
  if (before.x != now.x || before.y != now.y) repaint();
  RECT client{};
  GetClientRect(handle(), &client);
  RECT seen = this->around().seen;
  RECT window = surface().zoom().rect(page_.place(), around.corner);
  OffsetRect(&seen, -window.left - now.x, -window.top - now.y);
  IntersectRect(&seen, &seen, &client);
  for (Control* child : page_.children()) {
    if (ControlWindow* const inside = surface().window(*child)) inside->place({now, seen});
  }
}

void PageWindow::restyle() { repaint(); }

void PageWindow::apply(Aspect /*aspect*/) { repaint(); }

RECT PageWindow::areaOf(const Control& control) const {
  if (&control == &page_) return ControlWindow::areaOf(control);
  return surface().zoom().rect(control.place(), corner());
}

std::vector<Control*> PageWindow::drawnControls() const {
  std::vector<Control*> found;
  for (Control* child : page_.children()) {
    if (isDrawn(*child) && child->visible()) found.push_back(child);
  }
  std::stable_sort(found.begin(), found.end(), [](const Control* a, const Control* b) {
    return a->stacking() > b->stacking();
  });
  return found;
}

Control* PageWindow::drawnAt(POINT at) const {
  for (Control* control : drawnControls()) {
    const RECT area = areaOf(*control);
    if (PtInRect(&area, at) != FALSE) return control;
  }
  return nullptr;
}

void PageWindow::repaintControl(const Control& control) {
  if (handle() == nullptr) return;
  RECT area = areaOf(control);
  const int around = surface().zoom().pixels(looks::ring_gap) + 2;
  InflateRect(&area, around, around);
  InvalidateRect(handle(), &area, FALSE);
}

void PageWindow::keysArrived(const Control& stop) {
  repaintControl(stop);
  NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void PageWindow::keysLeft(const Control& stop) { repaintControl(stop); }

void PageWindow::drawPart(const Canvas& canvas, const RECT& part) {
  canvas.fill(part, canvas.tones().ground(page_.backColour()));
  for (const Control* child : backToFront(page_)) {
    if (!child->visible() || !isDrawnAround(*child)) continue;
    const RECT area = areaOf(*child);
    RECT meeting{};
    if (IntersectRect(&meeting, &area, &part) != FALSE) draw(canvas, *child, area);
  }
  const Control* const stop = surface().keysAt();
  if (stop != nullptr && stop->parent() == &page_) {
    drawRing(canvas, ringAround(canvas, *stop, areaOf(*stop)));
  }
}

void PageWindow::draw(const Canvas& canvas, const Control& control, const RECT& area) const {
  switch (control.kind()) {
    case ControlKind::label:
      return drawLabel(canvas, static_cast<const Label&>(control), area);
    case ControlKind::shape:
      return drawShape(canvas, static_cast<const Shape&>(control), area);
    case ControlKind::pictureButton:
      return drawButton(canvas, static_cast<const PictureButton&>(control), area,
                        hovered_ == &control);
    default:
      return drawField(canvas, control, area, static_cast<const TextBox&>(control).hasFocus());
  }
}

void PageWindow::press(POINT at) {
  Control* const hit = drawnAt(at);
  Control* field = nullptr;
  // The border of a text box lies outside its window.
  for (Control* child : page_.children()) {
    const RECT area = areaOf(*child);
    const bool here =
        child->kind() == ControlKind::textBox && child->visible() && PtInRect(&area, at) != FALSE;
    if (here) field = child;
  }
  Control& target = field != nullptr ? *field : hit != nullptr ? *hit : page_;
  const bool releases = field == nullptr && hit != nullptr && hit->kind() != ControlKind::shape;
  pressed_ = releases ? hit : nullptr;
  if (releases) SetCapture(handle());
  surface().act([&target](User& user) { user.mouseDown(target); });
  if (alive() && field != nullptr && static_cast<InputControl*>(field)->hasFocus()) {
    surface().giveKeysTo(*field);
  }
}

void PageWindow::release(POINT at) {
  if (GetCapture() == handle()) ReleaseCapture();
  Control* const pressed = std::exchange(pressed_, nullptr);
  if (pressed == nullptr) return;
  const RECT area = areaOf(*pressed);
  Control* const over = PtInRect(&area, at) != FALSE ? pressed : nullptr;
  surface().act([over](User& user) { user.mouseUp(over); });
}

void PageWindow::hover(POINT at) {
  const Control* const now = drawnAt(at);
  if (now == hovered_) return;
  const Control* const before = std::exchange(hovered_, now);
  for (const Control* const changed : {before, now}) {
    if (changed != nullptr && changed->kind() == ControlKind::pictureButton) {
      repaintControl(*changed);
    }
  }
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, handle(), 0};
  TrackMouseEvent(&leaving);
}

bool PageWindow::showsHand() const {
  if (hovered_ == nullptr) return false;
  if (hovered_->kind() == ControlKind::pictureButton) return true;
  return hovered_->kind() == ControlKind::label && static_cast<const Label*>(hovered_)->clickable();
}

bool PageWindow::keyDown(WPARAM key) {
  const Control* const stop = surface().keysAt();
  if (stop == nullptr || stop->parent() != &page_) return false;
  if (key != VK_SPACE && key != VK_RETURN) return false;
  auto& pressed = const_cast<Control&>(*stop);
  surface().act([&pressed](User& user) { user.click(pressed); });
  return true;
}

LRESULT PageWindow::handleMessage(UINT message, WPARAM wide, LPARAM low) {
  switch (message) {
    case WM_PAINT:
      paint([this](const Canvas& canvas, const RECT& part) { drawPart(canvas, part); });
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      press(pointOf(low));
      return 0;
    case WM_LBUTTONUP:
      release(pointOf(low));
      return 0;
    case WM_MOUSEMOVE:
      hover(pointOf(low));
      return 0;
    case WM_MOUSELEAVE:
      hover({-1, -1});
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(low) != HTCLIENT || !showsHand()) break;
      SetCursor(LoadCursorW(nullptr, IDC_HAND));
      return 1;
    case WM_KEYDOWN:
      if (keyDown(wide)) return 0;
      break;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_COMMAND:
      if (ControlWindow* const sender = of(reinterpret_cast<HWND>(low))) {
        const auto kept = sender->shared_from_this();
        sender->notified(HIWORD(wide));
        return 0;
      }
      break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
      if (ControlWindow* const field = of(reinterpret_cast<HWND>(low))) {
        return field->colours(reinterpret_cast<HDC>(wide));
      }
      break;
    default:
      break;
  }
  return ControlWindow::handleMessage(message, wide, low);
}

}  // namespace depcalc::native
