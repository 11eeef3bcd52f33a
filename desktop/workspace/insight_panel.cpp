#include "desktop/workspace/insight_panel.h"

#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "desktop/widgets/text_block.h"
#include "desktop/workspace/panel_keys.h"

namespace depcalc::desktop {

InsightPanel::InsightPanel(QWidget* parent) : QWidget(parent), pages_(new QTabWidget(this)) {
  setObjectName(QStringLiteral("InsightPanel"));
  setAccessibleName(tr("Insight"));
  pages_->setObjectName(QStringLiteral("InsightPages"));
  pages_->setAccessibleName(tr("Insight"));
  pages_->tabBar()->setAccessibleName(tr("Insight"));
  pages_->setDocumentMode(true);
  for (auto* stack : pages_->findChildren<QStackedWidget*>()) {
    stack->setAccessibleName(tr("Insight"));
  }
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(pages_);
  connect(pages_, &QTabWidget::currentChanged, this, &InsightPanel::showCurrent);
}

void InsightPanel::addPage(InsightPage* page) {
  page->setAccessibleName(page->title());
  pages_->addTab(page, page->title());
}

bool InsightPanel::hasPages() const { return pages_->count() > 0; }

InsightPage* InsightPanel::current() const {
  return static_cast<InsightPage*>(pages_->currentWidget());
}

void InsightPanel::choose(const QString& title) {
  for (int i = 0; i < pages_->count(); ++i) {
    if (pages_->tabText(i) == title) pages_->setCurrentIndex(i);
  }
}

void InsightPanel::takeKeys() { pages_->tabBar()->setFocus(Qt::ShortcutFocusReason); }

void InsightPanel::follow(const InsightSubject& subject) {
  if (subject == subject_) return;
  subject_ = subject;
  const QString name = qtText(nameOf(subject_));
  emit titled(name.isEmpty() ? tr("Insight") : tr("Insight: %1").arg(name));
  showCurrent();
}

void InsightPanel::showCurrent() {
  if (current() != nullptr) current()->follow(subject_);
}

bool InsightPanel::focusNextPrevChild(bool next) { return moveKeysWithin(*this, next); }

}  // namespace depcalc::desktop
