#include "desktop/widgets/guide_help.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QShortcut>
#include <QVariant>

#include "desktop/widgets/text_block.h"

namespace depcalc::desktop {
namespace {

constexpr const char* page_property = "guidePage";

/// A box and a dialog belong to the window that they stand before, which belongs to another.
void openPageOf(const QWidget& window) {
  const QString page = guidePageOf(window);
  for (QWidget* at = window.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (auto* const reader = dynamic_cast<GuideReader*>(at)) return reader->openGuide(page);
  }
}

}  // namespace

QString guidePageOf(const QWidget& window) {
  for (const QWidget* at = &window; at != nullptr; at = at->parentWidget()) {
    const QString page = at->property(page_property).toString();
    if (!page.isEmpty()) return page;
  }
  return {};
}

void addGuideKey(QWidget& window, std::string_view page) {
  window.setProperty(page_property, qtText(page));
  const auto* const key = new QShortcut(QKeySequence(Qt::Key_F1), &window);
  QObject::connect(key, &QShortcut::activated, &window, [&window] { openPageOf(window); });
}

void addGuideHelp(QDialog& dialog, std::string_view page) {
  addGuideKey(dialog, page);
  auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (buttons == nullptr) return;
  auto* const help = new QPushButton(QObject::tr("Help"), &dialog);
  help->setObjectName(QStringLiteral("Help"));
  help->setAutoDefault(false);
  buttons->addButton(help, QDialogButtonBox::HelpRole);
  // Of a box every button ends it, but not one that has lost its own connection.
  help->disconnect();
  QObject::connect(help, &QPushButton::clicked, &dialog, [&dialog] { openPageOf(dialog); });
}

}  // namespace depcalc::desktop
