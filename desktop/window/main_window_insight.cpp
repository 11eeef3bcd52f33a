// What Insight's pages ask of the window.
#include <QDir>

#include "desktop/window/main_window.h"
#include "desktop/window/report_output.h"
#include "desktop/workspace/chart_page.h"
#include "desktop/workspace/insight_panel.h"
#include "desktop/workspace/what_if_page.h"
#include "desktop/workspace/what_if_typing.h"

namespace depcalc::desktop {

void MainWindow::addChartPages(InsightPanel& panel) {
  auto* const chart = new ChartPage;
  connect(chart, &ChartPage::saveWanted, this, &MainWindow::saveChart);
  panel.addPage(chart);
  auto* const what_if = new WhatIfPage;
  connect(what_if, &WhatIfPage::used, this, &MainWindow::useWhatIf);
  panel.addPage(what_if);
}

void MainWindow::saveChart(const ChartFile& file) {
  exportReport({.proposed = QDir(companyFolder()).filePath(file.name),
                .filter = file.filter,
                .suffix = file.suffix,
                .taken = companyPath()},
               file.content, this);
}

/// As the register's tab and then Asset > Edit lead there: the form asks about unsaved changes
/// first.
void MainWindow::leadToAsset(std::int32_t number) {
  if (!calculator_->validateField()) return;
  DepCalcCont& container = calculator_->container();
  if (container.visibleScreen() != nullptr &&
      container.visibleScreen() != calculator_->assetRegister()) {
    auto* const tab = dynamic_cast<Label*>(container.visibleScreen()->child("ViewAllLabel"));
    if (tab == nullptr) return;
    calculator_->surface().act([tab](User& user) { user.click(*tab); });
    calculator_->stage().pumpPaint();
  }
  calculator_->selectAsset(number);
  if (calculator_->currentAsset() == number) asset_menu_->item("edit")->trigger();
}

/// The form with the asset of `subject`; null where the user would rather not go there.
DepCalcCtl* MainWindow::formWith(const InsightSubject& subject) {
  if (calculator_ == nullptr) return nullptr;
  if (subject.place == InsightPlace::comparison) {
    asset_menu_->item("edit")->trigger();
  } else if (subject.place != InsightPlace::entry) {
    leadToAsset(subject.asset.number);
    if (calculator_->currentAsset() != subject.asset.number) return nullptr;
  }
  calculator_->stage().pumpPaint();
  return calculator_->entryForm();
}

void MainWindow::useWhatIf(const InsightSubject& subject, const WhatIfRow& row) {
  DepCalcCtl* const form = formWith(subject);
  if (form == nullptr) return;
  calculator_->surface().act([&](User& user) { typeIntoForm(user, *form, row); });
  page_->takeKeys();
}

}  // namespace depcalc::desktop
