#include "desktop/window/asset_changes.h"

#include "changes/disposing.h"
#include "changes/entering_units.h"
#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/calculator.h"
#include "desktop/window/disposal_dialog.h"
#include "desktop/window/failure_telling.h"
#include "desktop/window/units_dialog.h"
#include "values/display_format.h"

namespace depcalc::desktop {

std::optional<int> AssetChanges::number() const {
  Calculator* const calculator = around_.calculator();
  return calculator == nullptr ? std::nullopt : calculator->currentAsset();
}

/// Unsaved changes of the calculator are asked about first. It is read anew afterwards: its current
/// record would write the old values back.
void AssetChanges::change(const Ask& ask) {
  const std::optional<int> at = number();
  if (!at || !around_.may_leave()) return;
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  std::optional<Change> asked;
  trapped("DepCalcDesktop::changeAsset", [&] { asked = ask(assets, *at); });
  if (!asked) return around_.stay();
  const QString problem = around_.save(*at, asked->kind, [&] { return asked->save(assets, *at); });
  if (problem.isEmpty()) return;
  around_.failures.tellUnlessAsked(QObject::tr("Nothing was changed. %1").arg(problem));
}

void AssetChanges::dispose() {
  change([this](CompanyAssets& assets, int at) { return askDisposal(assets, at); });
}

void AssetChanges::putBack() {
  change([this](CompanyAssets& assets, int at) { return askPuttingBack(assets, at); });
}

void AssetChanges::enterUnits() {
  change([this](CompanyAssets& assets, int at) { return askUnits(assets, at); });
}

/// The user is told why.
bool AssetChanges::isRefused(const std::optional<std::string>& refusal) const {
  if (refusal) around_.failures.tell(qtText(*refusal));
  return refusal.has_value();
}

std::optional<AssetChanges::Change> AssetChanges::askDisposal(CompanyAssets& assets, int number) {
  if (isRefused(whyNotSavedAnew(assets, number))) return std::nullopt;
  DisposalDialog dialog(savedAsset(assets, number), around_.today(), &around_.window);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return Change{StepKind::disposed, [disposal = dialog.disposal()](CompanyAssets& of, int at) {
                  return saveDisposal(of, at, disposal);
                }};
}

std::optional<AssetChanges::Change> AssetChanges::askPuttingBack(CompanyAssets& assets,
                                                                 int number) {
  const SavedAsset asset = savedAsset(assets, number);
  if (asset.disposed.isNone() || isRefused(whyNotSavedAnew(assets, number))) return std::nullopt;
  const std::string question = "This asset was disposed of on " + asset.disposed.toText() +
                               " for " + formatMoney(asset.proceeds) +
                               ". Do you want to put it back in service?";
  if (around_.settings.gives(Notice::undo_disposal) &&
      around_.site.ask({question, BoxButtons::yesNo, "Undo Disposal"}, {}) != BoxAnswer::yes) {
    return std::nullopt;
  }
  return Change{StepKind::put_back,
                [](CompanyAssets& of, int at) { return saveDisposal(of, at, std::nullopt); }};
}

std::optional<AssetChanges::Change> AssetChanges::askUnits(CompanyAssets& assets, int number) {
  const SavedAsset asset = savedAsset(assets, number);
  if (isRefused(refusedUnits(asset))) return std::nullopt;
  const auto entry = assets.units().entry(number);
  const QString note = entry && !entry->known
                           ? QObject::tr(
                                 "The units entered before were those of another asset, \"%1\". "
                                 "Saving replaces them.")
                                 .arg(qtText(entry->id))
                           : QString();
  UnitsDialog dialog(asset, fiscalYearOf(asset, around_.today()), note, &around_.window);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return Change{StepKind::units, [units = dialog.units()](CompanyAssets& of, int at) {
                  return saveUnits(of, at, units);
                }};
}

bool AssetChanges::isDisposed() const {
  const std::optional<int> at = number();
  bool disposed = false;
  if (at) {
    CompanyAssets assets(around_.application.CompanyFile(), around_.today());
    trapped("DepCalcDesktop::enableActions", [&] { disposed = depcalc::isDisposed(assets, *at); });
  }
  return disposed;
}

}  // namespace depcalc::desktop
