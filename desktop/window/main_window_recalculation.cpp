// The company's fiscal year and the assets' amounts.

#include "DepCalc/recalculation.h"
#include "common/trapped.h"
#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/company_info_dialog.h"
#include "desktop/window/main_window.h"
#include "desktop/window/recalculation_dialog.h"

namespace depcalc::desktop {
namespace {

QString monthAndDay(Date date) {
  return QStringLiteral("%1 %2").arg(qtText(date.monthName())).arg(date.day());
}

}  // namespace

void MainWindow::askCompanyInfo() {
  CompanyInfoDialog dialog(company()->info(), this);
  if (dialog.exec() == QDialog::Accepted) changeCompanyInfo(dialog.info());
}

/// The calculator keeps the fiscal year that it was started with, and so does the form that shows.
void MainWindow::changeCompanyInfo(const CompanyInfo& info) {
  const bool other_year = info.first_month != company()->info().first_month;
  if (other_year && !mayLeave()) return;
  setCompanyInfo(info);
  if (!other_year || calculator_ == nullptr) return;
  if (company()->info() != info) {
    may_leave_ = false;
    return;
  }
  startCalculator();
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  if (calculator_ != nullptr && around_.settings.gives(Notice::recalculation) &&
      assetsOfOtherFiscalYears(assets) > 0) {
    recalculate(FiscalYearEnds::company);
  }
}

void MainWindow::askRecalculation() {
  if (!mayLeave()) return;
  recalculate(FiscalYearEnds::own);
}

void MainWindow::recalculate(FiscalYearEnds ends) {
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  RecalculationDialog dialog(
      {assetsOfOtherFiscalYears(assets), monthAndDay(assets.fiscalYearEnd())}, ends,
      [&assets](FiscalYearEnds chosen) { return recalculated(assets, chosen); }, this);
  if (dialog.exec() == QDialog::Accepted) saveRecalculated(dialog.ends(), dialog.recalculation());
  may_leave_ = false;
}

/// The file is opened anew, so that the backup is of the company as it is now. What is saved is
/// what the user has seen.
void MainWindow::saveRecalculated(FiscalYearEnds ends, const Recalculation& seen) {
  if (!keepFreshBackup()) return;
  endCalculator();
  QString problem;
  CompanyAssets assets(application_->CompanyFile(), around_.today());
  const Recalculation now = recalculated(assets, ends);
  if (now.changes != seen.changes) {
    problem =
        tr("Another program has changed the company in the meantime. Please review the amounts "
           "again.");
  } else {
    problem = problemOfSaving([&] {
      return asStep(StepKind::recalculated,
                    [&] { return saveRecalculation(assets, now, [](std::size_t) {}); });
    });
  }
  startCalculator();
  if (!problem.isEmpty() && !told_) tell(tr("Nothing was changed. %1").arg(problem));
}

QString MainWindow::problemOfSaving(const std::function<std::optional<std::string>()>& save) {
  std::optional<std::string> report;
  const bool done = trapped("DepCalcDesktop::save", [&] { report = save(); });
  if (done && !report) return {};
  const auto trouble = company()->takeTrouble();
  if (trouble) return qtText(*trouble);
  return report ? qtText(*report) : tr("The file could not be written.");
}

bool MainWindow::keepFreshBackup() {
  const QString path = companyPath();
  const auto newest = [&] {
    const auto all = around_.backups.of(path);
    return all.isEmpty() ? QString() : all.front().path;
  };
  if (!openCompany(path)) return false;
  const QString before = newest();
  backup_kept_ = around_.backups.keep(path, QDateTime::currentDateTime());
  if (backup_kept_ && (!mayBeThere(path) || newest() != before)) return true;
  tell(tr("Nothing was changed. No backup could be made in the backup folder."));
  return false;
}

}  // namespace depcalc::desktop
