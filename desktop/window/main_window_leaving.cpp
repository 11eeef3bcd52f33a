// The ways out of a company, and out of the program.
#include <QApplication>
#include <QCloseEvent>

#include "desktop/window/main_window.h"
#include "desktop/window/reports_keeping.h"
#include "desktop/window/status_line.h"
#include "desktop/window/workspace.h"

namespace depcalc::desktop {

bool MainWindow::mayLeave() { return leaving_.ask(calculator_.get()); }

/// Every way of leaving an open company comes through here. Returns whether it was left.
bool MainWindow::leaveCompany() {
  if (!mayLeave()) return false;
  endCompany();
  return true;
}

void MainWindow::endCompany() {
  noteChanges();
  const QString path = companyPath();
  application_->setCompany(nullptr);
  endCalculator();
  if (!path.isEmpty()) around_.backups.drop(path);
  status_->clearNote();
  showPlaceholder();
  showStatus();
}

void MainWindow::closeCompany() {
  if (leaveCompany()) around_.settings.setLastCompany({});
}

void MainWindow::closeEvent(QCloseEvent* event) {
  const QString open = companyPath();
  if (!leaveCompany()) {
    event->ignore();
    return;
  }
  reports_->end();
  guide_.end();
  remember(open);
  event->accept();
}

void MainWindow::remember(const QString& open) {
  around_.settings.setLastCompany(open);
  around_.settings.setGeometry(saveGeometry());
  workspace_->remember();
  around_.settings.write();
}

void MainWindow::showToUser() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  for (QWidget* shown : {static_cast<QWidget*>(this), QApplication::activeModalWidget()}) {
    if (shown == nullptr) continue;
    shown->raise();
    shown->activateWindow();
  }
  QApplication::alert(this);
}

bool MainWindow::hasUnsavedEntry() {
  return failures_.isAsking() || (calculator_ != nullptr && calculator_->asksWhenLeft());
}

bool MainWindow::closeForSystem(int seconds) {
  return leaving_.withNote(tr("The system has asked this program to close. Without an "
                              "answer within %1 seconds, it will close without saving.")
                               .arg(seconds),
                           [this] { return close(); });
}

void MainWindow::giveUp() {
  noteChanges();
  const QString open = companyPath();
  // Those who called may hold on to it: it is closed, not destroyed.
  if (company() != nullptr) company()->close();
  if (!open.isEmpty()) around_.backups.drop(open);
  remember(open);
}

}  // namespace depcalc::desktop
