#include "desktop/widgets/surface.h"

#include <QTimer>
#include <QWidget>
#include <algorithm>

#include "common/trapped.h"
#include "controls/keyboard.h"

namespace depcalc::desktop {

Surface::Surface(Stage& stage, const Scale& scale, const Colours& colours)
    : stage_(stage), user_(stage), scale_(scale), colours_(colours) {}

void Surface::setScale(const Scale& scale) {
  scale_ = scale;
  emit restyled();
}

void Surface::setColours(const Colours& colours) {
  colours_ = colours;
  emit restyled();
}

void Surface::act(const std::function<void(User&)>& action) {
  trapped("DepCalcDesktop::act", [&] { action(user_); });
  restoreKeys();
  paintAtIdle();
  emit acted();
}

void Surface::paintAtIdle() {
  if (paint_scheduled_) return;
  paint_scheduled_ = true;
  QTimer::singleShot(0, this, [this] {
    paint_scheduled_ = false;
    trapped("DepCalcDesktop::paint", [this] { stage_.pumpPaint(); });
    emit painted();
  });
}

void Surface::tab(bool backwards) {
  const std::vector<Control*> stops = tabStops(stage_);
  const auto keys_at = std::find_if(stops.begin(), stops.end(), [this](const Control* stop) {
    const QWidget* const its = widget(*stop);
    return its != nullptr && its->hasFocus();
  });
  const TabStep step = tabStep(stage_, keys_at == stops.end() ? nullptr : *keys_at, backwards);
  switch (step.kind) {
    case TabStep::Kind::stop:
      giveKeysTo(*step.target, backwards);
      break;
    case TabStep::Kind::field:
      act([&step](User& user) { user.moveFocus(static_cast<InputControl&>(*step.target)); });
      if (stage_.focused() != nullptr) giveKeysTo(*stage_.focused(), backwards);
      break;
    case TabStep::Kind::along:
      focus_reason_ = backwards ? Qt::BacktabFocusReason : Qt::TabFocusReason;
      act([backwards](User& user) { user.tab(backwards); });
      focus_reason_ = Qt::OtherFocusReason;
      break;
  }
}

/// Only so do buttons and links get them: none has a focus policy, or Qt would choose one by itself
/// where a window has lost its focus.
void Surface::giveKeysTo(const Control& control, bool backwards) {
  QWidget* const its = widget(control);
  if (its == nullptr) return;
  its->setFocus(backwards ? Qt::BacktabFocusReason : Qt::TabFocusReason);
  if (control.kind() != ControlKind::grid) emit attention(its, its->rect());
}

/// What had the keys is gone, a link of help for instance, and the model's focus stayed.
void Surface::restoreKeys() {
  const InputControl* const focused = stage_.focused();
  if (resting_ == nullptr || focused == nullptr || !resting_->hasFocus()) return;
  if (QWidget* const its = widget(*focused)) its->setFocus();
}

bool Surface::handleKey(int key, Qt::KeyboardModifiers modifiers) {
  const Qt::KeyboardModifiers held = modifiers & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  if (held == Qt::NoModifier && (key == Qt::Key_Tab || key == Qt::Key_Backtab)) {
    tab(key == Qt::Key_Backtab || modifiers.testFlag(Qt::ShiftModifier));
    return true;
  }
  if (held == Qt::NoModifier && key == Qt::Key_F1) return press(helpTarget(stage_));
  if (held == Qt::NoModifier && key == Qt::Key_Escape) return press(closeTarget(stage_));
  const bool letter =
      (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
  if (held != Qt::AltModifier || !letter) return false;
  return press(mnemonicTarget(stage_, static_cast<char>(key)));
}

bool Surface::press(Control* control) {
  if (control == nullptr) return false;
  act([control](User& user) { user.click(*control); });
  return true;
}

QWidget* Surface::widget(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

}  // namespace depcalc::desktop
