#include "desktop/window/insight_pages.h"

#include <QDir>

#include "desktop/window/calculator.h"
#include "desktop/window/report_output.h"
#include "desktop/workspace/chart_page.h"
#include "desktop/workspace/insight_panel.h"
#include "desktop/workspace/what_if_page.h"
#include "desktop/workspace/what_if_typing.h"
#include "desktop/workspace/why_page.h"

namespace depcalc::desktop {

InsightPages::InsightPages(QWidget& window, Doors doors)
    : QObject(&window), window_(window), doors_(std::move(doors)) {}

void InsightPages::addTo(InsightPanel& panel) {
  panel.addPage(new WhyPage(&panel));
  auto* const chart = new ChartPage;
  connect(chart, &ChartPage::saveWanted, this, &InsightPages::saveChart);
  panel.addPage(chart);
  auto* const what_if = new WhatIfPage;
  connect(what_if, &WhatIfPage::used, this, &InsightPages::use);
  panel.addPage(what_if);
}

void InsightPages::saveChart(const ChartFile& file) {
  exportReport({.proposed = QDir(doors_.folder()).filePath(file.name),
                .filter = file.filter,
                .suffix = file.suffix,
                .taken = doors_.company_path()},
               file.content, &window_);
}

/// The form with the asset of `subject`; null where the user would rather not go there.
DepCalcCtl* InsightPages::formWith(const InsightSubject& subject) {
  if (doors_.calculator() == nullptr) return nullptr;
  const bool elsewhere =
      subject.place != InsightPlace::comparison && subject.place != InsightPlace::entry;
  if (subject.place == InsightPlace::comparison) doors_.press_edit();
  if (elsewhere) doors_.edit(subject.asset.number);
  // The user may have been asked something on the way.
  Calculator* const calculator = doors_.calculator();
  if (calculator == nullptr) return nullptr;
  if (elsewhere && calculator->currentAsset() != subject.asset.number) return nullptr;
  calculator->stage().pumpPaint();
  return calculator->entryForm();
}

void InsightPages::use(const InsightSubject& subject, const WhatIfRow& row) {
  DepCalcCtl* const form = formWith(subject);
  if (form == nullptr) return;
  doors_.calculator()->surface().act([&](User& user) { typeIntoForm(user, *form, row); });
  doors_.leave();
}

}  // namespace depcalc::desktop
