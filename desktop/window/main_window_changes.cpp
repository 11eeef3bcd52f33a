// What is entered of an asset without the calculator's screens: its disposal, the units it
// produced.
#include "changes/entering_units.h"
#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/disposal_dialog.h"
#include "desktop/window/main_window.h"
#include "desktop/window/units_dialog.h"
#include "values/display_format.h"

namespace depcalc::desktop {

/// Unsaved changes of the calculator are asked about first. It is read anew afterwards: its current
/// record would write the old values back.
void MainWindow::changeAsset(const AskedChange& ask) {
  const std::optional<int> number =
      calculator_ == nullptr ? std::nullopt : calculator_->currentAsset();
  if (!number || !mayLeave()) return;
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  AssetChange change;
  trapped("DepCalcDesktop::changeAsset", [&] { change = ask(assets, *number); });
  may_leave_ = may_leave_ && change != nullptr;
  if (change == nullptr) return;
  endCalculator();
  const QString problem = problemOfSaving([&] { return change(assets, *number); });
  followCompany();
  noteChanges();
  startCalculator();
  if (calculator_ != nullptr) calculator_->selectAsset(*number);
  if (!problem.isEmpty() && !told_) tell(tr("Nothing was changed. %1").arg(problem));
}

void MainWindow::askDisposal() {
  changeAsset([this](CompanyAssets& assets, int number) -> AssetChange {
    if (const auto refusal = whyNotSavedAnew(assets, number)) {
      tell(qtText(*refusal));
      return nullptr;
    }
    DisposalDialog dialog(savedAsset(assets, number), around_.today(), this);
    if (dialog.exec() != QDialog::Accepted) return nullptr;
    return [this, disposal = dialog.disposal()](CompanyAssets& of, int at) {
      return asStep(StepKind::disposed, [&] { return saveDisposal(of, at, disposal); });
    };
  });
}

void MainWindow::undoDisposal() {
  changeAsset([this](CompanyAssets& assets, int number) -> AssetChange {
    const SavedAsset asset = savedAsset(assets, number);
    if (asset.disposed.isNone()) return nullptr;
    if (const auto refusal = whyNotSavedAnew(assets, number)) {
      tell(qtText(*refusal));
      return nullptr;
    }
    const std::string question = "This asset was disposed of on " + asset.disposed.toText() +
                                 " for " + formatMoney(asset.proceeds) +
                                 ". Do you want to put it back in service?";
    if (around_.settings.gives(Notice::undo_disposal) &&
        site_.ask({question, BoxButtons::yesNo, "Undo Disposal"}, {}) != BoxAnswer::yes) {
      return nullptr;
    }
    return [this](CompanyAssets& of, int at) {
      return asStep(StepKind::put_back, [&] { return saveDisposal(of, at, std::nullopt); });
    };
  });
}

void MainWindow::askUnits() {
  changeAsset([this](CompanyAssets& assets, int number) -> AssetChange {
    const SavedAsset asset = savedAsset(assets, number);
    if (const auto refusal = refusedUnits(asset)) {
      tell(qtText(*refusal));
      return nullptr;
    }
    const auto entry = assets.units().entry(number);
    const QString note = entry && !entry->known
                             ? tr("The units entered before were those of another asset, \"%1\". "
                                  "Saving replaces them.")
                                   .arg(qtText(entry->id))
                             : QString();
    UnitsDialog dialog(asset, fiscalYearOf(asset, around_.today()), note, this);
    if (dialog.exec() != QDialog::Accepted) return nullptr;
    return [this, units = dialog.units()](CompanyAssets& of, int at) {
      return asStep(StepKind::units, [&] { return saveUnits(of, at, units); });
    };
  });
}

/// Whether there is a disposal of the asset that the calculator is at.
bool MainWindow::isCurrentAssetDisposed() {
  const std::optional<int> number =
      calculator_ == nullptr ? std::nullopt : calculator_->currentAsset();
  bool disposed = false;
  if (number) {
    CompanyAssets assets(application_->CompanyFile(), around_.today());
    trapped("DepCalcDesktop::enableActions", [&] { disposed = isDisposed(assets, *number); });
  }
  return disposed;
}

}  // namespace depcalc::desktop
