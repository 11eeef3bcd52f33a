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

/// The form with the asset of `subject`; null where the user would rather not go there.
DepCalcCtl* MainWindow::formWith(const InsightSubject& subject) {
  if (calculator_ == nullptr) return nullptr;
  if (subject.place == InsightPlace::comparison) {
    asset_menu_->item("edit")->trigger();
  } else if (subject.place != InsightPlace::entry) {
    editAsset(subject.asset.number);
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
