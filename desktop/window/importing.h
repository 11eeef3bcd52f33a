// File > Import: assets from a file into the register.
#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>

#include "desktop/host/saving.h"
#include "desktop/site/desktop_site.h"
#include "desktop/window/settings.h"
#include "importing/asset_import.h"

class QWidget;

namespace depcalc::desktop {

class FailureTelling;

/// Of one file at a time: shows what it holds, and saves it where the user agrees.
class Importing {
 public:
  struct Surroundings {
    const DesktopApplication& application;
    FailureTelling& failures;
    Settings& settings;
    QWidget& window;
    DesktopSite::Today today;
    std::function<QString()> folder;              ///< where the user keeps companies
    std::function<bool(const QString&)> is_open;  ///< as the company
    std::function<bool()> may_leave;              ///< the calculator, which runs
    std::function<void()> stay;                   ///< it is not left after all
    std::function<void(const QString&)> note;     ///< says it in passing
    /// Ends the calculator, takes this step, and starts it anew at asset `number`. Answers what
    /// went wrong.
    std::function<QString(std::int32_t number, StepKind, const Save&)> save;
  };

  /// All of that lives longer than this.
  explicit Importing(Surroundings surroundings) : around_(std::move(surroundings)) {}

  void ask();
  /// Shows what the file holds and, where the user agrees, adds its assets to the register.
  void importFile(const QString& path);

 private:
  [[nodiscard]] std::unique_ptr<AssetImport> read(const QString& path);
  void save(const AssetImport& import);

  Surroundings around_;
};

}  // namespace depcalc::desktop
