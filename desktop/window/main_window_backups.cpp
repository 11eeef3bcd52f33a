// Backups that take the place of a company file.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/guide/guide_pages.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/main_window.h"
#include "desktop/window/restore_dialog.h"

namespace depcalc::desktop {

/// Without an open company the user says which one: its file may be what cannot be opened.
void MainWindow::askBackup() {
  QString path = companyPath();
  if (path.isEmpty()) {
    path = askFileToOpen(this, {.title = tr("Restore Backup: Choose the Company's File"),
                                .filter = tr("Company files (*.company);;All files (*)"),
                                .proposed = companyFolder(),
                                .page = guide::backups});
  }
  if (!path.isEmpty()) offerBackups(path);
}

void MainWindow::offerBackups(const QString& path) {
  const QVector<Backup> backups = around_.backups.of(path);
  if (backups.isEmpty()) {
    tell(
        tr("There is no backup of this company yet. One is made before the first change each time "
           "the company is opened."));
    return;
  }
  // Each is opened, and so checked: a long register takes its time.
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QVector<std::optional<int>> assets;
  for (const Backup& backup : backups) {
    assets.push_back(around_.files.assetsIn(backup.path.toStdString()));
  }
  QApplication::restoreOverrideCursor();
  RestoreDialog dialog(backups, assets, this);
  if (dialog.exec() == QDialog::Accepted) restoreBackup(dialog.chosen(), path);
}

bool MainWindow::restoreBackup(const Backup& backup) {
  return restoreBackup(backup, companyPath());
}

bool MainWindow::restoreBackup(const Backup& backup, const QString& path) {
  if (isOpen(path) && !mayLeave()) return false;
  std::optional<Content> before = contentOf(path);
  if (isOpen(path) && !leaveCompany()) return false;
  try {
    const auto held = around_.files.hold(path.toStdString());
    const QString problem = around_.backups.restore(backup, path, QDateTime::currentDateTime());
    if (!problem.isEmpty()) {
      throw CompanyFileError(tr("The backup could not be restored: %1").arg(problem).toStdString());
    }
  } catch (const CompanyFileError& error) {
    tell(qtText(error.what()));
    if (company() == nullptr) openCompany(path);
    return false;
  }
  replaced_ = std::move(before);
  const bool open = openCompany(path);
  replaced_.reset();
  return open;
}

/// A company that could not be opened, and the way on where there is one.
void MainWindow::tellNotOpened(const CompanyFileError& error, const QString& path) {
  const QString text = qtText(error.what());
  if (!error.isDamage() || around_.backups.of(path).isEmpty()) {
    tell(text);
    return;
  }
  QMessageBox box(QMessageBox::Warning, tr("Depreciation Calculator"),
                  tr("%1\n\nYou can replace it with a backup of this company.").arg(text),
                  QMessageBox::Close, this);
  box.setTextFormat(Qt::PlainText);
  QPushButton* const restore = box.addButton(tr("Restore &Backup…"), QMessageBox::AcceptRole);
  box.setDefaultButton(restore);
  box.setEscapeButton(QMessageBox::Close);
  addGuideKey(box, guide::backups);
  tidyBox(box);
  box.exec();
  if (box.clickedButton() == restore) offerBackups(path);
}

}  // namespace depcalc::desktop
