#include "desktop/window/start_page.h"

#include <QAction>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

/// The folder as its owner calls it, or the server.
QString whereIs(const QString& path) {
  if (isOnServer(path)) return QObject::tr("on %1").arg(serverOf(path));
  const QString folder = QDir::toNativeSeparators(folderOf(path));
  const QString home = QDir::homePath();
  const bool inside = folder == home || folder.startsWith(home + u'/');
  return inside ? u'~' + folder.mid(home.size()) : folder;
}

QString captionOf(const QString& path, const QFontMetrics& metrics) {
  constexpr int characters = 50;
  const QString folder =
      metrics.elidedText(whereIs(path), Qt::ElideMiddle, metrics.averageCharWidth() * characters);
  QString caption = nameAt(path) + QStringLiteral("  –  ") + folder;
  return caption.replace(u'&', QStringLiteral("&&"));
}

}  // namespace

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
  offers_ = new QVBoxLayout;
  offers_->setSpacing(room / 3);
  auto* const centred = new QHBoxLayout;
  centred->addStretch();
  centred->addLayout(offers_);
  centred->addStretch();
  column->addLayout(centred);
  column->addStretch(3);
}

void StartPage::offer(const QStringList& paths) {
  if (paths.isEmpty()) return;
  auto* const heading = new QLabel(tr("Recent companies"), this);
  offers_->addWidget(heading, 0, Qt::AlignHCenter);
  for (const QString& path : paths) {
    auto* const button = new QPushButton(captionOf(path, fontMetrics()), this);
    button->setAutoDefault(true);
    const int room = fontMetrics().height();
    button->setMinimumSize(button->sizeHint().width() + room * 2, room * 7 / 4);
    button->setToolTip(toolTipText(path));
    connect(button, &QPushButton::clicked, this, [this, path] { emit chosen(path); });
    offers_->addWidget(button);
  }
}

}  // namespace depcalc::desktop
