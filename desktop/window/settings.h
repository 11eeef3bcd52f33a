// What the host window remembers from one run to the next.
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>
#include <optional>

#include "desktop/printing/pdf_printer.h"

namespace depcalc::desktop {

/// The colours that the program is to be shown in.
enum class Appearance { desktop, light, dark };

/// What the window says or asks without need: whoever knows it may have it left out, for nothing
/// can be lost by it.
enum class Notice {
  hints,          ///< what to do next
  recalculation,  ///< the offer after another fiscal year was chosen
  undo_disposal,  ///< whether an asset is to be put back in service
};

class Settings {
 public:
  static constexpr int most_recent = 8;

  /// Kept in an INI file of this path.
  explicit Settings(const QString& path) : store_(path, QSettings::IniFormat) {}

  /// The companies opened last, the latest first; files that are gone are left out. A company on a
  /// server is its address, which has no password.
  [[nodiscard]] QStringList recent() const;
  void addRecent(const QString& path);

  /// The addresses of the servers whose companies were listed last, the latest first.
  [[nodiscard]] QStringList servers() const;
  void addServer(const QString& address);

  /// The company that was open at the end of the last run; "" where there was none.
  [[nodiscard]] QString lastCompany() const;
  void setLastCompany(const QString& path);

  [[nodiscard]] int zoom() const;
  void setZoom(int percent);
  /// Whether the zoom follows the window's width, as it does for who has never chosen one.
  [[nodiscard]] bool fitWidth() const;
  void setFitWidth(bool on);

  [[nodiscard]] QByteArray geometry() const;
  void setGeometry(const QByteArray& geometry);

  /// What of the workspace is open ("toolbar", "assets", "insight"); nothing where the user has not
  /// chosen yet.
  [[nodiscard]] std::optional<bool> shown(const QString& part) const;
  void setShown(const QString& part, bool on);
  /// In pixels; 0 where it never was wide.
  [[nodiscard]] int width(const QString& part) const;
  void setWidth(const QString& part, int width);

  /// Columns and order of the list of assets, as its header writes them.
  [[nodiscard]] QByteArray assetColumns() const;
  void setAssetColumns(const QByteArray& columns);
  [[nodiscard]] bool hidesDisposed() const;
  void setHidesDisposed(bool on);

  /// What each column of a file with this header was taken as when it was imported; none where no
  /// such file was. The headers imported last are remembered.
  [[nodiscard]] QStringList importColumns(const QStringList& header) const;
  void setImportColumns(const QStringList& header, const QStringList& uses);

  [[nodiscard]] QString printer() const;
  void setPrinter(const QString& name);
  /// The size chosen last; nothing for who has never chosen one.
  [[nodiscard]] std::optional<PaperSize> paperSize() const;
  void setPaperSize(PaperSize size);
  /// How reports lie on it.
  [[nodiscard]] bool reportsLandscape() const;
  void setReportsLandscape(bool landscape);

  [[nodiscard]] Appearance appearance() const;
  void setAppearance(Appearance appearance);

  /// Whether it is given, as to anybody who has not refused it.
  [[nodiscard]] bool gives(Notice notice) const;
  void setGives(Notice notice, bool on);

  [[nodiscard]] bool isDismissed(const QString& hint) const;
  void dismiss(const QString& hint);
  void forgetDismissed();
  [[nodiscard]] bool hasDismissed() const;

  /// Whether the company of that path was made as a sample.
  [[nodiscard]] bool isSample(const QString& path) const;
  void addSample(const QString& path);

  /// Writes now what otherwise is written when there is time.
  void write() { store_.sync(); }

 private:
  void put(const QString& key, const QVariant& value);

  QSettings store_;
};

}  // namespace depcalc::desktop
