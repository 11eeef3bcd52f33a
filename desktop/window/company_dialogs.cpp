#include "desktop/window/company_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/guide/guide_pages.h"
#include "desktop/host/place.h"
#include "desktop/widgets/dialog_looks.h"
#include "desktop/widgets/guide_help.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/company_info_dialog.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/file_names.h"
#include "desktop/window/new_company_file.h"
#include "desktop/window/open_from_server_dialog.h"
#include "desktop/window/restore_dialog.h"
#include "desktop/window/wait_cursor.h"

namespace depcalc::desktop {
namespace {

const QString file_suffix = QStringLiteral(".company");

}  // namespace

QString CompanyDialogs::documents() const {
  return around_.documents.isEmpty() ? QDir::homePath() : around_.documents;
}

QString CompanyDialogs::folder() const {
  const QString open = around_.open_company();
  const QString last = open.isEmpty() ? around_.settings.recent().value(0) : open;
  if (isOnServer(last)) return documents();
  return last.isEmpty() ? QString() : folderOf(last);
}

void CompanyDialogs::askNew() {
  const QString path = askNewCompanyFile(&around_.window, folder());
  if (path.isEmpty()) return;
  CompanyInfo fresh;
  fresh.name = nameAt(path).toStdString();
  CompanyInfoDialog dialog(fresh, &around_.window);
  if (dialog.exec() == QDialog::Accepted) around_.create(path, dialog.info());
}

void CompanyDialogs::askToOpen() {
  const QString path = askFileToOpen(
      &around_.window,
      {.title = QObject::tr("Open Company"), .filter = companyFileFilter(), .proposed = folder()});
  if (!path.isEmpty()) around_.open(path);
}

void CompanyDialogs::askOnServer() {
  OpenFromServerDialog dialog(around_.files, around_.settings, around_.open_company(),
                              &around_.window);
  if (dialog.exec() != QDialog::Accepted) return;
  if (!dialog.wantsNew()) {
    around_.open(dialog.company());
    return;
  }
  CompanyInfo fresh;
  while (fresh.name.empty()) {
    CompanyInfoDialog info(fresh, &around_.window);
    if (info.exec() != QDialog::Accepted) return;
    fresh = info.info();
    if (fresh.name.empty()) {
      around_.tell(QObject::tr("Please enter a name. The server files the company under it."));
    }
  }
  around_.create(dialog.addressOf(qtText(fresh.name)), fresh);
}

void CompanyDialogs::askBackup() {
  QString path = around_.open_company();
  if (path.isEmpty()) {
    path = askFileToOpen(&around_.window,
                         {.title = QObject::tr("Restore Backup: Choose the Company's File"),
                          .filter = QObject::tr("Company files (*.company);;All files (*)"),
                          .proposed = folder(),
                          .page = guide::backups});
  }
  if (!path.isEmpty()) offerBackups(path);
}

void CompanyDialogs::offerBackups(const QString& path) {
  const QVector<Backup> backups = around_.backups.of(path);
  if (backups.isEmpty()) {
    around_.tell(QObject::tr(
        "There is no backup of this company yet. One is made before the first change each time "
        "the company is opened."));
    return;
  }
  QVector<std::optional<int>> assets;
  {
    // Each is opened, and so checked: a long register takes its time.
    const WaitCursor wait;
    for (const Backup& backup : backups) {
      assets.push_back(around_.files.assetsIn(backup.path.toStdString()));
    }
  }
  RestoreDialog dialog(backups, assets, &around_.window);
  if (dialog.exec() == QDialog::Accepted) around_.restore(dialog.chosen(), path);
}

void CompanyDialogs::tellNotOpened(const CompanyFileError& error, const QString& path) {
  const QString text = qtText(error.what());
  if (!error.isDamage() || around_.backups.of(path).isEmpty()) return around_.tell(text);
  if (isOnServer(path)) {
    return around_.tell(
        QObject::tr("%1\n\nThe newest backup of this company is the company file %2. Open it with "
                    "File > Open Company, or have it copied to the server under another name.")
            .arg(text, around_.backups.of(path).front().path));
  }
  if (wantsBackup(text)) offerBackups(path);
}

bool CompanyDialogs::wantsBackup(const QString& text) const {
  QMessageBox box(QMessageBox::Warning, QObject::tr("Depreciation Calculator"),
                  QObject::tr("%1\n\nYou can replace it with a backup of this company.").arg(text),
                  QMessageBox::Close, &around_.window);
  box.setTextFormat(Qt::PlainText);
  QPushButton* const restore =
      box.addButton(QObject::tr("Restore &Backup…"), QMessageBox::AcceptRole);
  box.setDefaultButton(restore);
  box.setEscapeButton(QMessageBox::Close);
  addGuideKey(box, guide::backups);
  tidyBox(box);
  box.exec();
  return box.clickedButton() == restore;
}

QString CompanyDialogs::askCopy() {
  const QString proposed =
      QObject::tr("%1/%2 copy").arg(folder(), fileNameAt(around_.open_company()));
  const QString path =
      askFileToSave(&around_.window, {.title = QObject::tr("Save a Copy As"),
                                      .filter = QObject::tr("Company files (*.company)"),
                                      .proposed = proposed + file_suffix});
  return path.isEmpty() ? path : withSuffix(path, file_suffix);
}

}  // namespace depcalc::desktop
