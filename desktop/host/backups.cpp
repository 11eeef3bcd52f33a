#include "desktop/host/backups.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace depcalc::desktop {
namespace {

const QString stamp = QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz");
const QString suffix = QStringLiteral(".company");

/// Whole, or not at all: a copy that was cut off would look like a backup.
QString copyFile(const QString& from, const QString& to) {
  QFile source(from);
  if (!source.open(QIODevice::ReadOnly)) return source.errorString();
  QSaveFile target(to);
  if (!target.open(QIODevice::WriteOnly)) return target.errorString();
  constexpr qint64 portion = 1 << 20;
  while (!source.atEnd()) {
    const QByteArray bytes = source.read(portion);
    if (bytes.isEmpty()) return source.errorString();
    if (target.write(bytes) != bytes.size()) return target.errorString();
  }
  target.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  return target.commit() ? QString() : target.errorString();
}

/// What is no company file at all is not worth a copy.
bool isDatabase(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  QFile file(path);
  const QByteArray magic = QByteArrayLiteral("SQLite format 3");
  return file.open(QIODevice::ReadOnly) && file.read(magic.size()) == magic;
}

}  // namespace

/// Two companies of one file name have folders of their own.
QString Backups::folder(const QString& company_path) const {
  const QFileInfo info(company_path);
  const QString canonical = info.canonicalFilePath();
  const QString path = canonical.isEmpty() ? info.absoluteFilePath() : canonical;
  const auto hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
  return root_ + u'/' + QFileInfo(path).completeBaseName() + u'-' + QLatin1String(hash.left(12));
}

QString Backups::asidePath(const QString& company_path) const {
  return folder(company_path) + QStringLiteral("/opening");
}

bool Backups::setAside(const QString& company_path) {
  if (!isDatabase(company_path) || !QDir().mkpath(folder(company_path))) return false;
  return copyFile(company_path, asidePath(company_path)).isEmpty();
}

void Backups::keep(const QString& company_path, const QDateTime& now) {
  const QString aside = asidePath(company_path);
  if (!QFile::exists(aside)) return;
  QFile::rename(aside, folder(company_path) + u'/' + now.toString(stamp) + suffix);
  const QVector<Backup> all = of(company_path);
  for (qsizetype i = kept; i < all.size(); ++i) QFile::remove(all[i].path);
}

void Backups::drop(const QString& company_path) { QFile::remove(asidePath(company_path)); }

QVector<Backup> Backups::of(const QString& company_path) const {
  const QDir dir(folder(company_path));
  QVector<Backup> found;
  // Names sort as dates do.
  for (const QFileInfo& file :
       dir.entryInfoList({u'*' + suffix}, QDir::Files, QDir::Name | QDir::Reversed)) {
    found.push_back({file.absoluteFilePath(), QDateTime::fromString(file.completeBaseName(), stamp),
                     file.size()});
  }
  return found;
}

QString Backups::restore(const Backup& backup, const QString& company_path, const QDateTime& now) {
  // The oldest may be the one to restore: it must not make room for what it replaces.
  const QString held = folder(company_path) + QStringLiteral("/restoring");
  QString problem = copyFile(backup.path, held);
  if (problem.isEmpty() && QFile::exists(company_path)) {
    if (!setAside(company_path)) {
      problem = QCoreApplication::translate("Backups", "The present file could not be copied.");
    } else {
      keep(company_path, now);
    }
  }
  if (problem.isEmpty()) problem = copyFile(held, company_path);
  QFile::remove(held);
  return problem;
}

}  // namespace depcalc::desktop
