// The Reports window beside the main one, while the user has it open.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/reports/report_desk.h"
#include "desktop/window/saved_register.h"
#include "desktop/window/settings.h"

namespace depcalc::desktop {

class Calculator;
class ReportsWindow;

/// What is saved in the main window is in the report at once. The window closes with its company.
class ReportsKeeping : public QObject {
  Q_OBJECT

 public:
  struct Surroundings {
    const DesktopApplication& application;
    SavedRegister& saved;
    Settings& settings;
    std::function<Calculator*()> calculator;   ///< that runs; null while none does
    std::function<QString()> folder;           ///< for the files that reports become
    std::function<bool()> has_unsaved;         ///< changes of an asset
    std::function<void(const QString&)> tell;  ///< what went wrong
  };

  /// All of that lives longer than this; `window` is the main one.
  ReportsKeeping(Surroundings surroundings, QWidget& window);

  /// Opens the window with this kind of report, or brings it to the front. Without a company there
  /// is nothing to report on.
  void show(ReportKind kind);
  /// Something may have been saved, or the company may be another.
  void follow();
  /// Whatever its revision: what is reported on may be another.
  void forget() { shown_revision_.reset(); }
  void followPaper();
  void end();

 signals:
  /// The user looks at an asset, and at its amount of a fiscal year where that is given.
  void amountPointed(std::int32_t asset, std::optional<int> fiscal_year);

 private:
  void open();
  [[nodiscard]] std::shared_ptr<const RegisterOfAssets> registerToReportOn();
  [[nodiscard]] std::size_t assetsNotPrinted();
  [[nodiscard]] QString companyPath() const;
  [[nodiscard]] bool isOfCompany() const;

  Surroundings around_;
  QWidget& window_;
  QPointer<ReportsWindow> reports_;
  QString path_;  ///< of the company that they are of
  std::optional<std::uint64_t> shown_revision_;
};

}  // namespace depcalc::desktop
