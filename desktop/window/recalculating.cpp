#include "desktop/window/recalculating.h"

#include "DepCalc/recalculation.h"
#include "desktop/host/saving.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/failure_telling.h"
#include "desktop/window/recalculation_dialog.h"

namespace depcalc::desktop {
namespace {

QString monthAndDay(Date date) {
  return QStringLiteral("%1 %2").arg(qtText(date.monthName())).arg(date.day());
}

}  // namespace

bool Recalculating::isDue() const {
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  return assetsOfOtherFiscalYears(assets) > 0;
}

void Recalculating::ask(FiscalYearEnds ends) {
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  RecalculationDialog dialog(
      {assetsOfOtherFiscalYears(assets), monthAndDay(assets.fiscalYearEnd())}, ends,
      [&assets](FiscalYearEnds chosen) { return recalculated(assets, chosen); }, &around_.window);
  if (dialog.exec() == QDialog::Accepted) save(dialog.ends(), dialog.recalculation());
}

/// The file is opened anew, so that the backup is of the company as it is now. What is saved is
/// what the user has seen.
void Recalculating::save(FiscalYearEnds ends, const Recalculation& seen) {
  if (!around_.keep_backup()) return;
  around_.end_calculator();
  CompanyAssets assets(around_.application.CompanyFile(), around_.today());
  const Recalculation now = recalculated(assets, ends);
  const auto write = [&] { return saveRecalculation(assets, now, [](std::size_t) {}); };
  const QString problem =
      now.changes == seen.changes
          ? problemOfStep(around_.application, StepKind::recalculated, write)
          : QObject::tr(
                "Another program has changed the company in the meantime. Please review "
                "the amounts again.");
  around_.start_calculator();
  if (problem.isEmpty()) return;
  around_.failures.tellUnlessAsked(QObject::tr("Nothing was changed. %1").arg(problem));
}

}  // namespace depcalc::desktop
