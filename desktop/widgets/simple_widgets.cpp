#include "desktop/widgets/simple_widgets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "controls/looks.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

bool isTab(const Label& label) { return label.role() == LabelRole::tab; }

QString shownText(const Label& label) { return qtText(looks::shownText(label)); }

QPainterPath tabOutline(const QRectF& area, double corner) {
  QPainterPath path(area.bottomLeft());
  path.lineTo(area.left(), area.top() + corner);
  path.quadTo(area.topLeft(), {area.left() + corner, area.top()});
  path.lineTo(area.right() - corner, area.top());
  path.quadTo(area.topRight(), {area.right(), area.top() + corner});
  path.lineTo(area.bottomRight());
  path.closeSubpath();
  return path;
}

}  // namespace

LabelWidget::LabelWidget(Label& label, Surface& surface, QWidget* parent)
    : QWidget(parent), label_(label), binding_(*this, label, surface, [this](Aspect) {
        setCursor(label_.clickable() ? Qt::PointingHandCursor : Qt::ArrowCursor);
        if (ring_ != nullptr) showRing();
        update();
      }) {
  setCursor(label_.clickable() ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

LabelWidget::~LabelWidget() { delete ring_; }

void LabelWidget::click() {
  binding_.surface().act([this](User& user) { user.click(label_); });
}

void LabelWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colours& colours = binding_.colours();
  if (isTab(label_)) {
    painter.fillPath(tabOutline(rect(), binding_.scale().exact(looks::frame_corner)),
                     colours.of(label_.backColour()));
  }
  painter.setPen(colours.of(label_.foreColour()));
  const QString text = shownText(label_);
  const TextBlock block(text, label_.font(), binding_.scale(),
                        label_.wordWrap() ? label_.width() : 0);
  QRectF area = rect();
  if (!label_.wordWrap() && block.height() < area.height()) {
    area.setTop(std::round((area.height() - block.height()) / 2));
  }
  block.draw(painter, area, label_.alignment(), mnemonicPosition(text, label_.mnemonic()));
}

void LabelWidget::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  showRing();
}

void LabelWidget::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  showRing();
}

/// Around the text: a label may be wider.
void LabelWidget::showRing() {
  delete ring_;
  if (!hasFocus()) return;
  QRect part = rect();
  const TextBlock block(shownText(label_), label_.font(), binding_.scale(),
                        label_.wordWrap() ? label_.width() : 0);
  const int spare = std::max(0, part.width() - static_cast<int>(std::ceil(block.width())));
  if (label_.alignment() == TextAlignment::left) part.setRight(part.right() - spare);
  if (label_.alignment() == TextAlignment::right) part.setLeft(part.left() + spare);
  ring_ = new FocusRing(*this, part, binding_.surface());
}

void LabelWidget::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(label_.clickable() && binding_.pressedByKey(event->key()));
}

void LabelWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.pressed();
}

void LabelWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.released(event->globalPosition().toPoint());
}

ShapeWidget::ShapeWidget(Shape& shape, Surface& surface, QWidget* parent)
    : QWidget(parent),
      shape_(shape),
      binding_(*this, shape, surface, [this](Aspect) { update(); }) {}

void ShapeWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool outer = looks::surroundsPage(shape_);
  const double line = std::max(1.0, binding_.scale().zoom() / 100.0) * (outer ? 1.0 : 1.5);
  QColor border = binding_.colours().of(shape_.foreColour());
  if (outer) border.setAlphaF(static_cast<float>(looks::faint));
  painter.setPen(QPen(border, line));
  painter.setBrush(binding_.colours().of(shape_.backColour()));
  const double inset = line / 2;
  const QRectF area = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  const double corner = shape_.rounded() ? binding_.scale().exact(looks::frame_corner) : 0;
  painter.drawRoundedRect(area, corner, corner);
}

void ShapeWidget::mousePressEvent(QMouseEvent*) { binding_.pressed(); }

PictureBoxWidget::PictureBoxWidget(PictureBox& box, Surface& surface, QWidget* parent)
    : QWidget(parent), box_(box), binding_(*this, box, surface, [this](Aspect) { update(); }) {}

void PictureBoxWidget::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), binding_.colours().of(box_.backColour()));
}

}  // namespace depcalc::desktop
