#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScopedValueRollback>

#include "desktop/window/main_window.h"
#include "desktop/window/workspace.h"

namespace depcalc::desktop {

/// The host asks in the calculator's own words, with a way back; the calculator's question, which
/// has none, is then answered for the user.
bool MainWindow::mayLeave() {
  if (calculator_ == nullptr || may_leave_) return true;
  if (leaving_) return false;
  const QScopedValueRollback leaving(leaving_, true);
  if (!calculator_->validateField()) return false;
  const MessageBox question = DepCalcCont::leavingQuestion();
  BoxAnswer answer = BoxAnswer::no;
  if (calculator_->asksWhenLeft()) {
    answer = site_.ask({question.text, BoxButtons::yesNoCancel, question.title}, leaving_note_);
    if (answer != BoxAnswer::yes && answer != BoxAnswer::no) return false;
  }
  site_.answerWhile(question, answer, [this] { calculator_->loseFocus(); });
  may_leave_ = true;
  return true;
}

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
  note_label_->clear();
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
  endReports();
  endGuide();
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
  return asking_ || (calculator_ != nullptr && calculator_->asksWhenLeft());
}

bool MainWindow::closeForSystem(int seconds) {
  const QScopedValueRollback note(leaving_note_,
                                  tr("The system has asked this program to close. Without an "
                                     "answer within %1 seconds, it will close without saving.")
                                      .arg(seconds));
  return close();
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
