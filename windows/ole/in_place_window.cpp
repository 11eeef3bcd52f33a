#include "windows/ole/in_place_window.h"

#include <ocidl.h>

#include <utility>

#include "windows/com/com_call.h"
#include "windows/ole/control_hub.h"

namespace depcalc::windows {
namespace {

RECT clipped(const RECT& position, const RECT& clip) {
  RECT visible;
  // A host that does not clip says nothing.
  if (IsRectEmpty(&clip)) return position;
  return IntersectRect(&visible, &position, &clip) ? visible : RECT{};
}

}  // namespace

InPlaceWindow::~InPlaceWindow() { deactivate(); }

void InPlaceWindow::activate(IOleInPlaceActiveObject& object) {
  if (active()) return;
  if (hub_.site() == nullptr) throw ComFailure(E_FAIL);
  ComPtr<IOleInPlaceSite> site;
  passed(hub_.site()->QueryInterface(IID_PPV_ARGS(&site)));
  if (site->CanInPlaceActivate() != S_OK) throw ComFailure(E_FAIL);
  passed(site->OnInPlaceActivate());
  try {
    makeScreen(*site.Get(), object);
  } catch (const ComFailure&) {
    site->OnInPlaceDeactivate();
    throw;
  }
  site_ = std::move(site);
  hub_.model().show();
  applyAmbient();
  screen_->show(true);
  hub_.site()->ShowObject();
}

void InPlaceWindow::makeScreen(IOleInPlaceSite& site, IOleInPlaceActiveObject& object) {
  HWND parent = nullptr;
  passed(site.GetWindow(&parent));
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  passed(site.GetWindowContext(&frame_, &document_, &position_, &clip, &info));
  native::Surface::Events events;
  events.focus = [this, &object](bool in) { hub_.answer([&] { focusMoved(object, in); }); };
  events.resized = [this] { sizeChanged(); };
  events.acted = [this] { hub_.viewChanged(); };
  screen_ = std::make_unique<native::ScreenWindow>(parent, hub_.model().root(), hub_.sharedModel(),
                                                   std::move(events), hub_.ambient().look);
  if (screen_->handle() == nullptr) {
    screen_.reset();
    throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
  }
  hub_.model().setWindow(screen_->handle());
  screen_->place(clipped(position_, clip));
}

void InPlaceWindow::activateUi(IOleInPlaceActiveObject& object) {
  activate(object);
  if (ui_active_) return;
  ui_active_ = true;
  passed(site_->OnUIActivate());
  showTools(&object);
  if (screen_ != nullptr && !screen_->hasFocus()) screen_->takeFocus();
}

/// The host's frame hands the keys to whoever is active, and takes back the room for toolbars.
void InPlaceWindow::showTools(IOleInPlaceActiveObject* object) {
  if (frame_ != nullptr) frame_->SetActiveObject(object, nullptr);
  if (document_ != nullptr) document_->SetActiveObject(object, nullptr);
  if (object != nullptr && frame_ != nullptr) frame_->SetBorderSpace(nullptr);
}

void InPlaceWindow::deactivateUi(bool leaving) {
  if (!std::exchange(ui_active_, false)) return;
  if (leaving && screen_ != nullptr) screen_->leave();
  showTools(nullptr);
  if (site_ != nullptr) site_->OnUIDeactivate(FALSE);
}

void InPlaceWindow::deactivate() {
  deactivateUi(false);
  if (!active()) return;
  const auto gone = std::move(screen_);
  hub_.model().setWindow(nullptr);
  gone->show(false);
  hub_.model().hide();
  const ComPtr<IOleInPlaceSite> site = std::exchange(site_, {});
  frame_.Reset();
  document_.Reset();
  if (site != nullptr) site->OnInPlaceDeactivate();
}

void InPlaceWindow::focusMoved(IOleInPlaceActiveObject& object, bool in) {
  ComPtr<IOleControlSite> control_site;
  if (hub_.site() != nullptr) hub_.site()->QueryInterface(IID_PPV_ARGS(&control_site));
  if (in) activateUi(object);
  if (control_site != nullptr) control_site->OnFocus(in);
}

void InPlaceWindow::sizeChanged() {
  hub_.viewChanged();
  if (site_ == nullptr || screen_ == nullptr) return;
  const SIZE size = screen_->size();
  const RECT wanted{position_.left, position_.top, position_.left + size.cx,
                    position_.top + size.cy};
  if (!EqualRect(&wanted, &position_)) site_->OnPosRectChange(&wanted);
}

void InPlaceWindow::place(const RECT& position, const RECT& clip) {
  position_ = position;
  if (screen_ != nullptr) screen_->place(clipped(position, clip));
}

void InPlaceWindow::setVisible(bool visible) {
  if (screen_ != nullptr) screen_->show(visible);
}

bool InPlaceWindow::translate(MSG& message) {
  return screen_ != nullptr && screen_->translateAccelerator(message);
}

void InPlaceWindow::applyAmbient() {
  if (screen_ == nullptr) return;
  screen_->setAmbient(hub_.ambient().look);
  EnableWindow(screen_->handle(), modeless_ && hub_.enabled() && hub_.ambient().user_mode);
}

void InPlaceWindow::setModeless(bool modeless) {
  modeless_ = modeless;
  applyAmbient();
}

}  // namespace depcalc::windows
