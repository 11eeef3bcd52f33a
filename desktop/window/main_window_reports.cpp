// The Reports menu and the window that it opens.
#include <QMenuBar>
#include <QTimer>

#include "common/trapped.h"
#include "desktop/printing/pdf_printer.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/main_window.h"
#include "desktop/window/missing_assets.h"
#include "desktop/window/reports_window.h"
#include "desktop/window/workspace.h"
#include "reports/reading/register_reading.h"

namespace depcalc::desktop {

void MainWindow::makeReportsMenu() {
  QMenu& menu = *menuBar()->addMenu(tr("&Reports"));
  const std::pair<QString, ReportKind> kinds[] = {
      {tr("&Depreciation Schedule…"), ReportKind::schedule},
      {tr("All &Fiscal Years…"), ReportKind::years},
      {tr("&Roll-forward…"), ReportKind::rollforward},
      {tr("&Journal Entry…"), ReportKind::journal},
      {tr("Asset &Card…"), ReportKind::asset},
      {tr("Register Chec&k…"), ReportKind::check}};
  for (const auto& [caption, kind] : kinds) {
    QAction* const action = menu.addAction(caption);
    connect(action, &QAction::triggered, this, [this, kind = kind] { showReports(kind); });
    report_actions_ << action;
  }
}

void MainWindow::showReports(ReportKind kind) {
  if (company() == nullptr) return;
  if (reports_ == nullptr) {
    const bool made = trapped("DepCalcDesktop::showReports", [this] {
      reports_ = new ReportsWindow({[this] { return registerForReports(); }, around_.settings,
                                    companyPath(), companyFolder()},
                                   this);
    });
    if (!made) return tell(tr("The assets could not be read for a report."));
    connect(reports_, &ReportsWindow::closed, this, [this] {
      reports_->deleteLater();
      reports_ = nullptr;
    });
    connect(reports_, &ReportsWindow::amountPointed, workspace_, &Workspace::chooseInReport);
    reports_revision_ = revision();
    reports_path_ = companyPath();
  }
  reports_->choose(kind);
  reports_->noteUnsaved(hasUnsavedEntry());
  reports_->show();
  reports_->raise();
  reports_->activateWindow();
}

/// One reading of a register serves all who show it. Another company's has another revision, or is
/// shown by nobody.
std::shared_ptr<RegisterOfAssets> MainWindow::registerAsSaved() {
  auto assets = read_.lock();
  if (assets != nullptr && read_revision_ == revision()) return assets;
  assets = std::make_shared<RegisterOfAssets>(
      readRegisterOfAssets(application_->CompanyFile(), company()->info().name, around_.today()));
  read_ = assets;
  read_revision_ = revision();
  return assets;
}

std::shared_ptr<const RegisterOfAssets> MainWindow::registerForReports() {
  const auto assets = registerAsSaved();
  assets->assets_not_printed = assetsNotPrinted();
  return assets;
}

/// Of the register's pages, on A4, upright, as the register was shown last: a calculator started
/// for this alone would write to the company. Where none runs, no page is printed.
std::size_t MainWindow::assetsNotPrinted() {
  const DepCalcView* const view = calculator_ == nullptr ? nullptr : calculator_->assetRegister();
  const auto printer = makePdfPrinter({PaperSize::a4, false}, {});
  if (view == nullptr || printer == nullptr) return 0;
  return assetsMissing(view->AssetViewTable, *printer);
}

/// What is saved in this window is in the report at once.
void MainWindow::followReports() {
  if (reports_ == nullptr) return;
  if (!reportsAreOfCompany()) {
    // It may only be opened anew.
    QTimer::singleShot(0, this, [this] {
      if (!reportsAreOfCompany()) endReports();
    });
    return;
  }
  reports_->noteUnsaved(hasUnsavedEntry());
  if (revision() == reports_revision_) return;
  reports_revision_ = revision();
  const bool read = trapped("DepCalcDesktop::followReports", [this] { reports_->refresh(); });
  if (!read) endReports();
}

bool MainWindow::reportsAreOfCompany() const {
  return company() != nullptr && companyPath() == reports_path_;
}

void MainWindow::endReports() { delete reports_; }

}  // namespace depcalc::desktop
