// The dialogs that ask for a company.
#pragma once

#include <QString>
#include <functional>

#include "desktop/host/backups.h"
#include "desktop/host/company_files.h"
#include "desktop/window/settings.h"

class QWidget;

namespace depcalc::desktop {

/// Which one to open, to make or to restore, and where a copy of the open one goes.
class CompanyDialogs {
 public:
  struct Surroundings {
    CompanyFiles& files;
    Backups& backups;
    Settings& settings;
    QString documents;  ///< where the user keeps documents; "" for the home directory
    QWidget& window;
    std::function<QString()> open_company;  ///< its path; "" while none is open
    std::function<void(const QString&)> open;
    std::function<void(const QString&, const CompanyInfo&)> create;
    std::function<void(const Backup&, const QString&)> restore;
    std::function<void(const QString&)> tell;
  };

  /// All of that lives longer than this.
  explicit CompanyDialogs(Surroundings surroundings) : around_(std::move(surroundings)) {}

  void askNew();
  void askToOpen();
  void askOnServer();
  /// Without an open company the user says which one: its file may be what cannot be opened.
  void askBackup();
  /// A company could not be opened; the way on where there is one.
  void tellNotOpened(const CompanyFileError& error, const QString& path);
  /// The path of a copy; "" where the user thought better of it.
  [[nodiscard]] QString askCopy();

  /// Where the user keeps companies.
  [[nodiscard]] QString folder() const;
  /// Where the user keeps documents.
  [[nodiscard]] QString documents() const;

 private:
  void offerBackups(const QString& path);
  [[nodiscard]] bool wantsBackup(const QString& text) const;

  Surroundings around_;
};

}  // namespace depcalc::desktop
