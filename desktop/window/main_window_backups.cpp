// Backups of the open company, and copies of it.
#include "common/trapped.h"
#include "desktop/host/place.h"
#include "desktop/host/restoring.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/main_window.h"

namespace depcalc::desktop {

bool MainWindow::restoreBackup(const Backup& backup) {
  return restoreBackup(backup, companyPath());
}

bool MainWindow::restoreBackup(const Backup& backup, const QString& path) {
  if (isOpen(path) && !mayLeave()) return false;
  std::optional<Content> before = contentOf(path);
  if (isOpen(path) && !leaveCompany()) return false;
  QString place = path;
  try {
    place = restore(backup, path, around_.files, around_.backups);
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

/// What can be read of a company, be it open or not.
std::optional<Content> MainWindow::contentOf(const QString& path) {
  if (!isOpen(path)) return contentOfClosed(around_.files, path);
  std::optional<Content> content;
  trapped("DepCalcDesktop::contentOf", [&] { content = application_->recorder()->content(); });
  return content;
}

/// The company is opened anew for it, as it is now.
bool MainWindow::keepFreshBackup() {
  const QString path = companyPath();
  if (!openCompany(path)) return false;
  if (backup_.keepUnchanged(path)) return true;
  tell(tr("Nothing was changed. No backup could be made in the backup folder."));
  return false;
}

bool MainWindow::saveCopy(const QString& path) {
  try {
    company()->saveCopy(wholePlace(path).toStdString());
  } catch (const CompanyFileError& error) {
    tell(qtText(error.what()));
    return false;
  }
  followCompany();
  return true;
}

}  // namespace depcalc::desktop
