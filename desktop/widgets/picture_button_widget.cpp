#include "desktop/widgets/picture_button_widget.h"

#include <QMouseEvent>
#include <QPainter>

#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
PictureButtonWidget::PictureButtonWidget(PictureButton& button, Surface& surface, QWidget* parent)
    : QAbstractButton(parent), button_(button), binding_(*this, button, surface, [this](Aspect) {
        if (ring_ != nullptr) showRing();
        update();
      }) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
  setToolTip(qtText(button.caption()));
  connect(this, &QAbstractButton::clicked, this,
          [this] { binding_.surface().act([this](User& user) { user.click(button_); }); });
}

PictureButtonWidget::~PictureButtonWidget() { delete ring_; }

void PictureButtonWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const PictureButton& named = button_.under() != nullptr ? *button_.under() : button_;
  const QString caption = qtText(button_.caption());
  drawButton(painter, rect(),
             {button_.picture(), caption, mnemonicPosition(caption, named.mnemonic()),
              button_.role() == ButtonRole::primary, underMouse()},
             binding_.colours(), binding_.scale());
}

void PictureButtonWidget::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  showRing();
}

void PictureButtonWidget::focusOutEvent(QFocusEvent* event) {
  QAbstractButton::focusOutEvent(event);
  showRing();
}

void PictureButtonWidget::showRing() {
  delete ring_;
  if (hasFocus()) ring_ = new FocusRing(*this, rect(), binding_.surface());
}

void PictureButtonWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.pressed();
}

void PictureButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) binding_.released(event->globalPosition().toPoint());
}

void PictureButtonWidget::mouseMoveEvent(QMouseEvent*) {}

}  // namespace depcalc::desktop
