#include "desktop/window/reports_keeping.h"

#include <QTimer>

#include "common/trapped.h"
#include "desktop/printing/pdf_printer.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/calculator.h"
#include "desktop/window/missing_assets.h"
#include "desktop/window/reports_window.h"

namespace depcalc::desktop {

ReportsKeeping::ReportsKeeping(Surroundings surroundings, QWidget& window)
    : QObject(&window), around_(std::move(surroundings)), window_(window) {}

void ReportsKeeping::show(ReportKind kind) {
  if (around_.application.company() == nullptr) return;
  if (reports_ == nullptr) {
    const bool made = trapped("DepCalcDesktop::showReports", [this] { open(); });
    if (!made) return around_.tell(tr("The assets could not be read for a report."));
    connect(reports_, &ReportsWindow::closed, this, [this] {
      reports_->deleteLater();
      reports_ = nullptr;
    });
    connect(reports_, &ReportsWindow::amountPointed, this, &ReportsKeeping::amountPointed);
    shown_revision_ = around_.application.revision();
    path_ = companyPath();
  }
  reports_->choose(kind);
  reports_->noteUnsaved(around_.has_unsaved());
  reports_->show();
  reports_->raise();
  reports_->activateWindow();
}

void ReportsKeeping::open() {
  reports_ = new ReportsWindow(
      {[this] { return registerToReportOn(); }, around_.settings, companyPath(), around_.folder()},
      &window_);
}

std::shared_ptr<const RegisterOfAssets> ReportsKeeping::registerToReportOn() {
  const auto assets = around_.saved.read();
  assets->assets_not_printed = assetsNotPrinted();
  return assets;
}

/// Of the register's pages, on A4, upright, as the register was shown last: a calculator started
/// for this alone would write to the company. Where none runs, no page is printed.
std::size_t ReportsKeeping::assetsNotPrinted() {
  Calculator* const calculator = around_.calculator();
  const DepCalcView* const view = calculator == nullptr ? nullptr : calculator->assetRegister();
  const auto printer = makePdfPrinter({PaperSize::a4, false}, {});
  if (view == nullptr || printer == nullptr) return 0;
  return assetsMissing(view->AssetViewTable, *printer);
}

void ReportsKeeping::follow() {
  if (reports_ == nullptr) return;
  if (!isOfCompany()) {
    // It may only be opened anew.
    QTimer::singleShot(0, this, [this] {
      if (!isOfCompany()) end();
    });
    return;
  }
  reports_->noteUnsaved(around_.has_unsaved());
  if (around_.application.revision() == shown_revision_) return;
  shown_revision_ = around_.application.revision();
  const bool read = trapped("DepCalcDesktop::followReports", [this] { reports_->refresh(); });
  if (!read) end();
}

void ReportsKeeping::followPaper() {
  if (reports_ != nullptr) reports_->followPaper();
}

QString ReportsKeeping::companyPath() const {
  const Company* const company = around_.application.company();
  return company == nullptr ? QString() : qtText(company->path());
}

bool ReportsKeeping::isOfCompany() const {
  return around_.application.company() != nullptr && companyPath() == path_;
}

void ReportsKeeping::end() { delete reports_; }

}  // namespace depcalc::desktop
