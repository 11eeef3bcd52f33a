#include "desktop/window/new_company_file.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "desktop/window/file_dialogs.h"
#include "desktop/window/file_names.h"
#include "desktop/window/warning_box.h"

namespace depcalc::desktop {
namespace {

const QString company_suffix = QStringLiteral(".company");

/// "" where a company can be made there.
QString troubleWith(const QString& path) {
  const QFileInfo file(path);
  if (file.exists() || file.isSymLink()) {
    return QObject::tr(
               "%1 already exists. Choose another name for the new company; to open the existing "
               "company, use File > Open Company.")
        .arg(file.fileName());
  }
  return folderTrouble(path);
}

}  // namespace

QString companyFileFilter() {
  return QCoreApplication::translate("MainWindow", "Company files (*.company);;All files (*)");
}

QString askNewCompanyFile(QWidget* window, const QString& folder) {
  QString path = folder;
  for (;;) {
    path = askFileToSave(
        window,
        {.title = QObject::tr("New Company"), .filter = companyFileFilter(), .proposed = path});
    if (path.isEmpty()) return {};
    path = withSuffix(path, company_suffix);
    const QString trouble = troubleWith(path);
    if (trouble.isEmpty()) return path;
    warn(trouble, window);
  }
}

}  // namespace depcalc::desktop
