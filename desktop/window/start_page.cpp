#include "desktop/window/start_page.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace depcalc::desktop {

StartPage::StartPage(const QString& text, std::initializer_list<QAction*> actions) {
  setObjectName(QStringLiteral("StartPage"));
  setAccessibleName(text);
  auto* const label = new QLabel(text, this);
  label->setObjectName(QStringLiteral("Placeholder"));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  QFont large = label->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  label->setFont(large);
  const int room = fontMetrics().height();
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(room);
  buttons->addStretch();
  for (QAction* action : actions) {
    auto* const button = new QPushButton(action->text(), this);
    button->setAutoDefault(true);
    button->setMinimumSize(room * 10, room * 2);
    connect(button, &QPushButton::clicked, action, &QAction::trigger, Qt::QueuedConnection);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(room * 2, room * 2, room * 2, room * 2);
  column->setSpacing(room * 2);
  column->addStretch(2);
  column->addWidget(label);
  column->addLayout(buttons);
  column->addStretch(3);
}

}  // namespace depcalc::desktop
