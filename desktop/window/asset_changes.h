// What is entered of an asset without the calculator's screens: its disposal, the units it
// produced.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "DepCalc/company_assets.h"
#include "desktop/host/saving.h"
#include "desktop/site/desktop_site.h"
#include "desktop/window/settings.h"

class QWidget;

namespace depcalc::desktop {

class Calculator;
class FailureTelling;

/// Each is of the asset that the calculator is at, asks the user, and saves what was entered.
class AssetChanges {
 public:
  struct Surroundings {
    const DesktopApplication& application;
    FailureTelling& failures;
    DesktopSite& site;
    const Settings& settings;
    QWidget& window;
    DesktopSite::Today today;
    std::function<Calculator*()> calculator;  ///< that runs; null while none does
    std::function<bool()> may_leave;          ///< the calculator; asks about unsaved changes
    std::function<void()> stay;               ///< it is not left after all
    /// Ends the calculator, takes this step, and starts it anew at asset `number`. Answers what
    /// went wrong.
    std::function<QString(std::int32_t number, StepKind, const Save&)> save;
  };

  /// All of that lives longer than this.
  explicit AssetChanges(Surroundings surroundings) : around_(std::move(surroundings)) {}

  void dispose();
  void putBack();
  void enterUnits();
  /// Whether there is a disposal of the asset.
  [[nodiscard]] bool isDisposed() const;

 private:
  struct Change {
    StepKind kind;
    std::function<std::optional<std::string>(CompanyAssets& assets, int number)> save;
  };
  /// Asks the user about a change of asset `number`; nothing where there is to be none.
  using Ask = std::function<std::optional<Change>(CompanyAssets& assets, int number)>;

  void change(const Ask& ask);
  [[nodiscard]] std::optional<Change> askDisposal(CompanyAssets& assets, int number);
  [[nodiscard]] std::optional<Change> askPuttingBack(CompanyAssets& assets, int number);
  [[nodiscard]] std::optional<Change> askUnits(CompanyAssets& assets, int number);
  [[nodiscard]] bool isRefused(const std::optional<std::string>& refusal) const;
  [[nodiscard]] std::optional<int> number() const;

  Surroundings around_;
};

}  // namespace depcalc::desktop
