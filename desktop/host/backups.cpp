#include "desktop/host/backups.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>
#include <functional>

#include "desktop/host/place.h"

namespace depcalc::desktop {
namespace {

const QString stamp = QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz");
const QString suffix = QStringLiteral(".company");
const QString aside_prefix = QStringLiteral("opening-");

/// A copy of the program's own is for its user alone.
void makePrivate(QSaveFile& file) { ::fchmod(file.handle(), S_IRUSR | S_IWUSR); }

/// What takes the place of a file is for those who had that one. A group that cannot be kept gets
/// no more than anybody.
void keepAccess(QSaveFile& file, const QString& replaced) {
  struct stat before {};
  if (::stat(QFile::encodeName(replaced).constData(), &before) != 0) return;
  const bool kept = ::fchown(file.handle(), before.st_uid, before.st_gid) == 0 ||
                    ::fchown(file.handle(), static_cast<uid_t>(-1), before.st_gid) == 0;
  constexpr mode_t all = S_IRWXU | S_IRWXG | S_IRWXO;
  ::fchmod(file.handle(), before.st_mode & (kept ? all : all & ~mode_t{S_IRWXG}));
}

/// Whole, or not at all: a copy that was cut off would look like a backup. `finish` comes last
/// before the copy has its name.
QString copyFile(const QString& from, const QString& to,
                 const std::function<void(QSaveFile&)>& finish = makePrivate) {
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
  finish(target);
  return target.commit() ? QString() : target.errorString();
}

bool sameBytes(const QString& one, const QString& other) {
  QFile a(one);
  QFile b(other);
  return a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly) && a.readAll() == b.readAll();
}

/// What is no company file at all is not worth a copy.
bool isDatabase(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  QFile file(path);
  const QByteArray magic = QByteArrayLiteral("SQLite format 3");
  return file.open(QIODevice::ReadOnly) && file.read(magic.size()) == magic;
}

}  // namespace

/// Two companies of one name have folders of their own.
QString Backups::folder(const QString& company_path) const {
  const QString canonical =
      isOnServer(company_path) ? QString() : QFileInfo(company_path).canonicalFilePath();
  const QString path = canonical.isEmpty() ? wholePlace(company_path) : canonical;
  const auto hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
  return root_ + u'/' + fileNameAt(path) + u'-' + QLatin1String(hash.left(12));
}

bool Backups::setAside(const QString& company_path) {
  return isDatabase(company_path) && setAside(company_path, [&company_path](const QString& aside) {
           return copyFile(company_path, aside).isEmpty();
         });
}

bool Backups::setAside(const QString& company_path,
                       const std::function<bool(const QString&)>& copy) {
  const QString place = folder(company_path);
  if (!QDir().mkpath(place)) return false;
  // Who makes the copy may give it to anybody.
  QFile::setPermissions(place, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QString aside = place + u'/' + aside_prefix + QUuid::createUuid().toString(QUuid::Id128);
  if (!copy(aside)) return false;
  drop(company_path);
  aside_[place] = aside;
  return true;
}

void Backups::opened(const QString& company_path) {
  const QString place = folder(company_path);
  const QString own = aside_.value(place);
  if (own.isEmpty()) return;
  for (const QFileInfo& left : QDir(place).entryInfoList({aside_prefix + u'*'}, QDir::Files)) {
    if (left.absoluteFilePath() == QFileInfo(own).absoluteFilePath()) continue;
    const QString path = left.absoluteFilePath();
    if (sameBytes(path, own) || (same_ && same_(path, own))) {
      QFile::remove(left.absoluteFilePath());
    } else {
      QFile::rename(left.absoluteFilePath(),
                    place + u'/' + left.lastModified().toString(stamp) + suffix);
    }
  }
  removeOldest(company_path);
}

bool Backups::keep(const QString& company_path, const QDateTime& now) {
  const QString place = folder(company_path);
  const QString aside = aside_.take(place);
  if (aside.isEmpty() || !QFile::exists(aside)) return true;
  if (!QFile::rename(aside, place + u'/' + now.toString(stamp) + suffix)) return false;
  removeOldest(company_path);
  return true;
}

void Backups::removeOldest(const QString& company_path) {
  const QVector<Backup> all = of(company_path);
  for (qsizetype i = kept; i < all.size(); ++i) QFile::remove(all[i].path);
}

void Backups::drop(const QString& company_path) {
  const QString aside = aside_.take(folder(company_path));
  if (!aside.isEmpty()) QFile::remove(aside);
}

QString Backups::historyOf(const QString& company_path) const {
  return folder(company_path) + QStringLiteral("/undo.history");
}

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
    if (!setAside(company_path) || !keep(company_path, now)) {
      problem = QCoreApplication::translate("Backups", "The current file could not be copied.");
    }
  }
  if (problem.isEmpty()) {
    problem = copyFile(held, company_path, [&company_path](QSaveFile& file) {
      keepAccess(file, company_path);
      // An unfinished change of what stood there would be taken back in the backup.
      QFile::remove(company_path + QStringLiteral("-journal"));
    });
  }
  QFile::remove(held);
  return problem;
}

}  // namespace depcalc::desktop
