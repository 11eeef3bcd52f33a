// Company > Recalculate All Assets.
#pragma once

#include <functional>

#include "desktop/host/desktop_application.h"
#include "desktop/site/desktop_site.h"

class QWidget;

namespace depcalc {
enum class FiscalYearEnds;
struct Recalculation;
}  // namespace depcalc

namespace depcalc::desktop {

class FailureTelling;

/// Shows what calculating every asset of the company anew would come to, and saves what the user
/// has seen.
class Recalculating {
 public:
  struct Surroundings {
    DesktopApplication& application;
    FailureTelling& failures;
    QWidget& window;
    DesktopSite::Today today;
    /// Opens the company anew, with a backup of it as it is then. False where that failed, and the
    /// user was told.
    std::function<bool()> keep_backup;
    std::function<void()> end_calculator;
    std::function<void()> start_calculator;
  };

  /// All of that lives longer than this.
  explicit Recalculating(Surroundings surroundings) : around_(std::move(surroundings)) {}

  /// Whether assets have another fiscal-year end than the company.
  [[nodiscard]] bool isDue() const;
  /// With `ends` chosen to begin with.
  void ask(FiscalYearEnds ends);

 private:
  void save(FiscalYearEnds ends, const Recalculation& seen);

  Surroundings around_;
};

}  // namespace depcalc::desktop
