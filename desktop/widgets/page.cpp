#include "desktop/widgets/page.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "controls/overhang.h"
#include "desktop/widgets/arrow_keys.h"
#include "desktop/widgets/user_control_widget.h"

namespace depcalc::desktop {
namespace {

constexpr int reveal_margin = 12;  // pixels left around what is to be seen

}  // namespace

Page::Page(QWidget* parent) : QScrollArea(parent) {
  setObjectName(QStringLiteral("Page"));
  setAccessibleName(tr("Calculator"));
  viewport()->setAccessibleName(accessibleName());
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  setBackgroundRole(QPalette::Base);
}

void Page::showControl(UserControl& root, Surface& surface) {
  clear();
  setWidgetResizable(false);
  surface_ = &surface;
  surface.setRestingWidget(this);
  root_ = &root;
  connect(&surface, &Surface::attention, this, &Page::reveal);
  connect(&surface, &Surface::turned, this, &Page::showTopLeft);
  connect(&surface, &Surface::appeared, this, [this](QWidget* widget) { appeared_ = widget; });
  connect(&surface, &Surface::painted, this, &Page::revealAppeared);
  auto* const sheet = new QWidget(viewport());
  sheet->setAccessibleName(accessibleName());
  shown_ = new UserControlWidget(root, surface, sheet);
  shown_->installEventFilter(this);
  setWidget(sheet);
  arrange();
  takeKeys();
  surface.paintAtIdle();
}

void Page::takeKeys() {
  const InputControl* const focused = surface_ == nullptr ? nullptr : surface_->stage().focused();
  QWidget* const owner = focused == nullptr ? nullptr : surface_->widget(*focused);
  (owner != nullptr ? owner : this)->setFocus();
}

void Page::showPlaceholder(QWidget* placeholder) {
  clear();
  setWidgetResizable(true);
  setWidget(placeholder);
}

void Page::clear() {
  if (surface_ != nullptr) {
    surface_->disconnect(this);
    surface_->setRestingWidget(nullptr);
  }
  surface_ = nullptr;
  root_ = nullptr;
  shown_ = nullptr;
  delete takeWidget();
}

bool Page::eventFilter(QObject* watched, QEvent* event) {
  if (watched == shown_ && event->type() == QEvent::Resize) {
    arrange();
    emit reshaped();
  }
  return QScrollArea::eventFilter(watched, event);
}

Place Page::shownPlace() const { return root_ == nullptr ? Place{} : root_->place(); }

Place Page::shownPlaceWithHelp() const {
  return root_ == nullptr ? Place{} : placeWithOverhang(*root_);
}

/// In the middle as long as all of it is to be seen.
void Page::arrange() {
  if (shown_ == nullptr) return;
  const int room = viewport()->width();
  const int middle = (room - surface_->scale().rect(root_->place()).width()) / 2;
  const int left = std::max(0, std::min(middle, room - shown_->width()));
  shown_->move(left, 0);
  widget()->resize(left + shown_->width(), shown_->height());
  emit surface_->scrolled();
}

void Page::revealAppeared() {
  if (appeared_ != nullptr && appeared_->isVisible()) reveal(appeared_, appeared_->rect());
  appeared_.clear();
}

void Page::showTopLeft() {
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
}

/// A scroll bar that has just become necessary takes its place only at the next idle moment.
QSize Page::roomInSight() const {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  const auto comes = [](const QScrollBar& at) { return at.maximum() > 0 && !at.isVisible(); };
  return viewport()->size() -
         QSize(comes(*verticalScrollBar()) ? bar : 0, comes(*horizontalScrollBar()) ? bar : 0);
}

void Page::reveal(QWidget* child, const QRect& part) {
  if (widget() == nullptr || !widget()->isAncestorOf(child)) return;
  const QRect there(child->mapTo(widget(), part.topLeft()), part.size());
  const QRect view(-widget()->pos(), roomInSight());
  if (view.contains(there)) return;
  const auto moved = [](int low, int high, int view_low, int view_high) {
    if (low < view_low) return low - view_low - reveal_margin;
    return high > view_high ? std::min(high - view_high, low - view_low) + reveal_margin : 0;
  };
  const int right = moved(there.left(), there.right(), view.left(), view.right());
  const int down = moved(there.top(), there.bottom(), view.top(), view.bottom());
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + right);
  verticalScrollBar()->setValue(verticalScrollBar()->value() + down);
}

bool Page::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && surface_ != nullptr) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (surface_->handleKey(key.key(), key.modifiers())) return true;
  }
  return QScrollArea::event(event);
}

/// The first arrow goes to the first control, the next ones move in it.
void Page::keyPressEvent(QKeyEvent* event) {
  const bool rests = surface_ != nullptr && surface_->stage().focused() == nullptr;
  if (rests && directionOf(event->key()).has_value()) {
    surface_->tab(false);
    return;
  }
  QScrollArea::keyPressEvent(event);
}

/// Among the calculator's controls the model moves the focus.
bool Page::focusNextPrevChild(bool next) {
  return surface_ == nullptr && QScrollArea::focusNextPrevChild(next);
}

void Page::scrollContentsBy(int right, int down) {
  QScrollArea::scrollContentsBy(right, down);
  if (surface_ != nullptr) emit surface_->scrolled();
}

void Page::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  arrange();
  if (surface_ != nullptr) emit reshaped();
}

}  // namespace depcalc::desktop
