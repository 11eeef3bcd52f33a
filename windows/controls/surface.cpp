#include "windows/controls/surface.h"

#include "common/trapped.h"
#include "controls/keyboard.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {
namespace {

bool isDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

Surface::Surface(UserControl& root, std::shared_ptr<void> model, Events events, Ambient ambient)
    : root_(root),
      model_(std::move(model)),
      events_(std::move(events)),
      ambient_(std::move(ambient)),
      tones_(ambient_.colours) {
  makeFonts();
}

void Surface::makeFonts() {
  const std::wstring family = ambient_.font_family.empty() ? usualFamily() : ambient_.font_family;
  measure_.emplace(family);
  fonts_.emplace(family, dpi_);
}

void Surface::end() {
  frame_ = nullptr;
  events_ = {};
  keys_at_ = nullptr;
}

void Surface::setDpi(int dpi) {
  dpi_ = dpi;
  makeFonts();
}

void Surface::setAmbient(const Ambient& ambient) {
  ambient_ = ambient;
  refreshTones();
  makeFonts();
}

/// No exception may cross the system's frames that lie between a message and its handler. One that
/// is none of the calculator's errors is reported like them.
void Surface::act(const std::function<void(User&)>& action) {
  if (!alive()) return;
  const auto self = shared_from_this();
  const auto model = model_;
  User user(stage());
  trapped("DepCalcNative::act", [&] {
    try {
      action(user);
    } catch (const RuntimeError&) {
      throw;
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception&) {
      throw RuntimeError::invalidCall();
    }
  });
  if (!alive()) return;
  restoreKeys();
  paintAtIdle();
  tell(events_.acted);
}

void Surface::paintAtIdle() {
  if (paint_due_ || !alive()) return;
  paint_due_ = PostMessageW(frame_, paint_due_message, 0, 0) != FALSE;
}

void Surface::pumpPaint() {
  if (!alive()) return;
  const auto self = shared_from_this();
  const auto model = model_;
  paint_due_ = false;
  trapped("DepCalcNative::paint", [this] { stage().pumpPaint(); });
}

bool Surface::handleKey(WPARAM key, bool alt) {
  const bool control = isDown(VK_CONTROL);
  if (!alt && !control && key == VK_TAB) {
    tab(isDown(VK_SHIFT));
    return true;
  }
  if (!alt && !control && key == VK_F1) return press(helpTarget(stage()));
  if (!alt && !control && key == VK_ESCAPE) return press(closeTarget(stage()));
  const bool letter = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
  if (!alt || control || !letter) return false;
  return press(mnemonicTarget(stage(), static_cast<char>(key)));
}

bool Surface::press(Control* control) {
  if (control == nullptr) return false;
  act([control](User& user) { user.click(*control); });
  return true;
}

void Surface::tab(bool backwards) {
  const TabStep step = tabStep(stage(), keys_at_, backwards);
  switch (step.kind) {
    case TabStep::Kind::stop:
      return giveKeysTo(*step.target);
    case TabStep::Kind::field:
      act([&step](User& user) { user.moveFocus(static_cast<InputControl&>(*step.target)); });
      if (alive() && stage().focused() != nullptr) giveKeysTo(*stage().focused());
      return;
    case TabStep::Kind::along:
      return act([backwards](User& user) { user.tab(backwards); });
  }
}

ControlWindow* Surface::window(const Control& control) const {
  const auto found = windows_.find(&control);
  return found == windows_.end() ? nullptr : found->second;
}

/// A control that is only drawn has them through the window that it is drawn on.
void Surface::giveKeysTo(const Control& control) {
  ControlWindow* const own = window(control);
  ControlWindow* const holder = own != nullptr ? own : window(*control.parent());
  if (holder == nullptr) return;
  forgetKeys();
  if (own == nullptr) keys_at_ = &control;
  SetFocus(holder->handle());
  if (!alive()) return;
  if (own == nullptr) holder->keysArrived(control);
  holder->reveal(control);
}

void Surface::forgetKeys() {
  const Control* const from = std::exchange(keys_at_, nullptr);
  if (from == nullptr) return;
  if (ControlWindow* const holder = window(*from->parent())) holder->keysLeft(*from);
}

bool Surface::hasFocus() const {
  const HWND focus = GetFocus();
  return alive() && focus != nullptr && (focus == frame_ || IsChild(frame_, focus) != FALSE);
}

/// A box above the page, or another program, gives the focus back to where it was.
void Surface::focusMoved(HWND other, bool in) const {
  if (!alive() || other == nullptr) return;
  const bool ours = other == frame_ || IsChild(frame_, other) != FALSE;
  const bool elsewhere = GetAncestor(other, GA_ROOT) != GetAncestor(frame_, GA_ROOT);
  if (!ours && !elsewhere) tell(events_.focus, in);
}

void Surface::followFocus() {
  if (!hasFocus()) return;
  const InputControl* const focused = stage().focused();
  if (focused != nullptr && focused->isShown()) return giveKeysTo(*focused);
  forgetKeys();
  SetFocus(frame_);
}

/// What had the keys is gone, a link of help for instance, and the model's focus stayed.
void Surface::restoreKeys() {
  const bool gone = keys_at_ != nullptr && !keys_at_->isShown();
  if (gone) followFocus();
}

}  // namespace depcalc::native
