#include "desktop/window/hint_bar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/guide/next_step.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {

HintBar::HintBar(QWidget* parent)
    : QFrame(parent),
      text_(new QLabel(this)),
      more_(new QPushButton(tr("Loo&k It Up"), this)),
      dismiss_(new QPushButton(tr("Okay"), this)) {
  setObjectName(QStringLiteral("HintBar"));
  setAccessibleName(tr("Hint"));
  text_->setObjectName(QStringLiteral("Hint"));
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  more_->setObjectName(QStringLiteral("HintMore"));
  more_->setToolTip(tr("Opens the guide at this subject"));
  dismiss_->setObjectName(QStringLiteral("HintDismiss"));
  dismiss_->setToolTip(tr("Does not show this hint again"));
  const int room = fontMetrics().height();
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(room, room / 3, room / 2, room / 3);
  row->setSpacing(room / 2);
  row->addWidget(text_, 1);
  for (QPushButton* button : {more_, dismiss_}) {
    // A field that has the focus would be left, and validated, for a click beside it.
    button->setFocusPolicy(Qt::NoFocus);
    row->addWidget(button);
  }
  connect(more_, &QPushButton::clicked, this, [this] {
    if (step_ != nullptr) emit moreWanted(qtText(step_->page));
  });
  connect(dismiss_, &QPushButton::clicked, this, [this] {
    if (step_ != nullptr) emit dismissed(qtText(step_->key));
  });
  setAutoFillBackground(true);
  colour();
  hide();
}

void HintBar::show(const NextStep* step) {
  if (step == step_) return;
  step_ = step;
  if (step != nullptr) {
    text_->setText(qtText(step->text));
    setAccessibleDescription(text_->text());
  }
  setVisible(step != nullptr);
  emit reshaped();
}

/// Quiet: the tone of the calculator's paper, with a line towards it.
void HintBar::colour() {
  const Colours colours(palette());
  QPalette look;
  look.setColor(QPalette::Window, colours.paper());
  setPalette(look);
}

void HintBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) colour();
  QFrame::changeEvent(event);
}

void HintBar::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  emit reshaped();
}

}  // namespace depcalc::desktop
