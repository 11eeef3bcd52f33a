#include "desktop/host/restoring.h"

#include <QFile>
#include <QObject>
#include <QTemporaryDir>

#include "changes/company_steps.h"
#include "common/trapped.h"
#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"

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

/// In one transaction.
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

bool setAside(Backups& backups, Company& company) {
  return backups.setAside(qtText(company.path()),
                          [&company](const QString& aside) { return copyOf(company, aside); });
}

std::optional<Content> contentOfClosed(CompanyFiles& files, const QString& path) {
  std::optional<Content> content;
  trapped("DepCalcDesktop::contentOf", [&] {
    try {
      const auto closed = files.open(path.toStdString());
      content = contentOf(*closed->file(), closed->info(), followedTables());
      closed->close();
    } catch (const CompanyFileError&) {
      // It may be damaged, and restored for that.
    }
  });
  return content;
}

QString restore(const Backup& backup, const QString& path, CompanyFiles& files, Backups& backups) {
  if (isOnServer(path)) return restoreOnServer(files, backups, backup, path);
  restoreFile(files, backups, backup, path);
  return path;
}

}  // namespace depcalc::desktop
