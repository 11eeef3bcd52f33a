// Dated copies of companies. A path is a company file's, or the address of one on a server.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVector>
#include <functional>

namespace depcalc::desktop {

struct Backup {
  QString path;
  QDateTime made;
  qint64 bytes = 0;
};

/// Keeps the last ten copies of each company, as company files, in a folder of its own below
/// `root`.
///
/// A copy is taken while the file is closed, or by whoever has the company open, and set aside; it
/// counts from the first change of the opening that follows, and is dropped if none comes. Copies
/// set aside by other programs that have the company open, or try to, are left alone.
class Backups {
 public:
  static constexpr int kept = 10;

  /// Whether two files hold the same although their bytes differ.
  using Same = std::function<bool(const QString&, const QString&)>;

  explicit Backups(QString root, Same same = {}) : root_(std::move(root)), same_(std::move(same)) {}

  /// Sets a copy of `company_path` aside. The file must not be open. Returns whether it could.
  bool setAside(const QString& company_path);
  /// The same of a company that only `copy` can reach, which makes a file of this path and returns
  /// whether it could.
  bool setAside(const QString& company_path, const std::function<bool(const QString&)>& copy);
  /// The file is open, and nobody else can have it open. A copy that a crash left behind becomes a
  /// backup where the company was changed after it was taken.
  void opened(const QString& company_path);
  /// The file has been changed: what was set aside is kept as of `now`, the oldest goes. False
  /// when it could not be kept; where nothing was set aside nothing is missing.
  bool keep(const QString& company_path, const QDateTime& now);
  /// The file was closed as it had been opened.
  void drop(const QString& company_path);

  /// Where the steps of the company are kept that can be undone: beside its backups.
  [[nodiscard]] QString historyOf(const QString& company_path) const;

  /// The newest first.
  [[nodiscard]] QVector<Backup> of(const QString& company_path) const;
  /// Puts `backup` in the place of the company file, which must not be open, all of it or
  /// nothing, for those who may use that one; what stood there becomes a backup itself. Returns
  /// what went wrong, "" if nothing.
  QString restore(const Backup& backup, const QString& company_path, const QDateTime& now);

 private:
  [[nodiscard]] QString folder(const QString& company_path) const;
  void removeOldest(const QString& company_path);

  QString root_;
  Same same_;
  QHash<QString, QString> aside_;  ///< of each company's folder
};

}  // namespace depcalc::desktop
