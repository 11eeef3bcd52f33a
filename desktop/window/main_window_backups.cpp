// Backups that take the place of a company file.
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/main_window.h"
#include "desktop/window/restore_dialog.h"

namespace depcalc::desktop {
namespace {

CompanyFileError notRestored(const QString& problem) {
  return CompanyFileError(
      QObject::tr("The backup could not be restored: %1").arg(problem).toStdString());
}

/// A copy of a company that nobody else can have meanwhile, for its user alone.
bool copyOf(Company& company, const QString& path) {
  try {
    company.saveCopy(path.toStdString());
  } catch (const CompanyFileError&) {
    return false;
  }
  return QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
}

void restoreFile(CompanyFiles& files, Backups& backups, const Backup& backup, const QString& path) {
  const auto held = files.hold(path.toStdString());
  const QString problem = backups.restore(backup, path, QDateTime::currentDateTime());
  if (!problem.isEmpty()) throw notRestored(problem);
}

/// In one transaction. Answers where the company is then: where the server fails, the user may go
/// on with a copy.
QString restoreOnServer(CompanyFiles& files, Backups& backups, const Backup& backup,
                        const QString& path) {
  const auto company = files.open(path.toStdString());
  const auto copy = [&company](const QString& aside) { return copyOf(*company, aside); };
  // The oldest may be the one to restore: it must not make room for what it replaces.
  const QTemporaryDir scratch;
  const QString held = scratch.filePath(QStringLiteral("restoring"));
  if (!QFile::copy(backup.path, held) || !backups.setAside(path, copy) ||
      !backups.keep(path, QDateTime::currentDateTime())) {
    throw notRestored(QObject::tr("The company as it is now could not be copied."));
  }
  company->become(held.toStdString());
  const QString place = qtText(company->path());
  company->close();
  return place;
}

}  // namespace

/// For who has a company on a server open. There is nothing else to copy.
bool MainWindow::setAside(Company& company) {
  return around_.backups.setAside(
      qtText(company.path()), [&company](const QString& aside) { return copyOf(company, aside); });
}

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
  QString place = path;
  try {
    if (isOnServer(path)) {
      place = restoreOnServer(around_.files, around_.backups, backup, path);
    } else {
      restoreFile(around_.files, around_.backups, backup, path);
    }
  } catch (const CompanyFileError& error) {
    tell(qtText(error.what()));
    if (company() == nullptr) openCompany(path);
    return false;
  }
  replaced_ = std::move(before);
  const bool open = openCompany(place);
  replaced_.reset();
  return open;
}

/// A company that could not be opened, and the way on where there is one.
void MainWindow::tellNotOpened(const CompanyFileError& error, const QString& path) {
  const QString text = qtText(error.what());
  if (!error.isDamage() || around_.backups.of(path).isEmpty()) return tell(text);
  if (isOnServer(path)) {
    return tell(tr("%1\n\nThe newest backup of this company is the company file %2. Open it with "
                   "File > Open Company, or have it copied to the server under another name.")
                    .arg(text, around_.backups.of(path).front().path));
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
