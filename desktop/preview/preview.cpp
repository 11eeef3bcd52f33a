#include "desktop/preview/preview.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QPdfWriter>
#include <QTimer>
#include <utility>

#include "compare/dep_calc_display_ctl.h"
#include "desktop/preview/dialog_pictures.h"
#include "desktop/preview/image_printer.h"
#include "desktop/preview/modal_picture.h"
#include "desktop/preview/step_pictures.h"
#include "desktop/printing/page_printer.h"
#include "desktop/workspace/insight_panel.h"
#include "entry/dep_calc_ctl.h"

namespace depcalc::desktop {
namespace {

constexpr QSize picture_size(940, 640);  // whatever screen there is
constexpr QSize reports_size(1240, 800);
constexpr QSize workspace_size(1440, 862);
constexpr QSize insight_size(1330, 800);
constexpr int page_dpi = 110;
constexpr double margin_points = 36;

class Walk {
 public:
  Walk(MainWindow& window, QString directory) : window_(window), directory_(std::move(directory)) {}

  QStringList run() {
    settle();
    DepCalcView* view = calculator().assetRegister();
    if (view != nullptr && view->isShown()) {
      grab(QStringLiteral("register"));
      user([view](User& user) { user.clickCell(view->AssetViewTable, 0, 1); });
      grab(QStringLiteral("register-selected"));
      printSchedule();
      showReports();
      paths_ << drawDialogs(window_, directory_);
      view = calculator().assetRegister();
      user([view](User& user) { user.clickCell(view->AssetViewTable, 0, 1); });
      user([view](User& user) { user.click(view->EditButton.normal); });
    }
    showEntry();
    paths_ << drawSteps(window_, directory_);
    return paths_;
  }

 private:
  Calculator& calculator() { return *window_.calculator(); }

  template <typename Screen>
  Screen* screen(const char* name) {
    return dynamic_cast<Screen*>(calculator().container().child(name));
  }

  void showEntry() {
    auto* const form = screen<DepCalcCtl>("DepCalcCtl1");
    if (form == nullptr || !form->isShown()) return;
    grab(QStringLiteral("entry"));
    user([form](User& user) { user.click(form->ASalvageLabel); });
    grab(QStringLiteral("entry-help"));
    calculator().surface().handleKey(Qt::Key_Escape, Qt::NoModifier);
    if (form->BasisText.empty()) return;
    user([form](User& user) { user.click(form->CalcButton.normal); });
    auto* const comparison = screen<DepCalcDisplayCtl>("DepCalcDisplayCtl1");
    if (comparison == nullptr || !comparison->isShown()) return;
    user([comparison](User& user) { user.click(comparison->SYDOption); });
    grab(QStringLiteral("comparison"));
    user([comparison](User& user) { user.click(comparison->HelpLabel); });
    grab(QStringLiteral("comparison-help"));
    calculator().surface().handleKey(Qt::Key_Escape, Qt::NoModifier);
    showWorkspace(comparison->DisplayTable);
    showInsight();
  }

  /// All that can stand around the page, with a cell in view.
  void showWorkspace(const Grid& amounts) {
    window_.resize(workspace_size);
    for (const char* part : {"toolbar", "assets", "insight"}) {
      auto* const item = window_.findChild<QAction*>(QLatin1String(part));
      if (item != nullptr && !item->isChecked()) item->trigger();
    }
    settle();
    emit calculator().surface().cellPointed(amounts, 2, 2);
    settle();
    grab(QStringLiteral("workspace"));
  }

  template <typename Action>
  void user(Action action) {
    calculator().surface().act(action);
    settle();
  }

  void grab(const QString& name) {
    const QString path = directory_ + u'/' + name + QStringLiteral(".png");
    if (window_.grab().save(path)) paths_ << path;
  }

  /// Each kind, on its own.
  void showReports() {
    const std::pair<ReportKind, const char*> kinds[] = {
        {ReportKind::schedule, "reports-schedule"},
        {ReportKind::years, "reports-years"},
        {ReportKind::rollforward, "reports-rollforward"},
        {ReportKind::journal, "reports-journal"},
        {ReportKind::asset, "reports-asset"},
        {ReportKind::check, "reports-check"}};
    for (const auto& [kind, name] : kinds) {
      window_.showReports(kind);
      auto* const reports = window_.findChild<QWidget*>(QStringLiteral("ReportsWindow"));
      if (reports == nullptr) return;
      reports->resize(reports_size);
      if (auto* const by = reports->findChild<QComboBox*>(QStringLiteral("Grouping"))) {
        by->setCurrentIndex(kind == ReportKind::years ? 0 : 1);
      }
      settle();
      const QString path = directory_ + u'/' + QLatin1String(name) + QStringLiteral(".png");
      if (reports->grab().save(path)) paths_ << path;
    }
    window_.findChild<QWidget*>(QStringLiteral("ReportsWindow"))->close();
    settle();
  }

  /// Beside the comparison, each page.
  void showInsight() {
    for (QAction* action : window_.findChildren<QAction*>()) {
      if (action->text().remove(u'&') == u"Insight" && !action->isChecked()) action->trigger();
    }
    window_.resize(insight_size);
    settle();
    auto* const insight = window_.findChild<InsightPanel*>();
    if (insight == nullptr) return;
    for (const auto& [title, name] :
         {std::pair("Chart", "insight-chart"), std::pair("What if", "insight-what-if")}) {
      insight->choose(QLatin1String(title));
      settle();
      grab(QLatin1String(name));
    }
  }

  void printSchedule() {
    const QString path = directory_ + QStringLiteral("/schedule.pdf");
    {
      QPdfWriter pdf(path);
      pdf.setPageLayout({QPageSize(QPageSize::A4),
                         QPageLayout::Portrait,
                         {margin_points, margin_points, margin_points, margin_points}});
      PagePrinter printer(pdf);
      calculator().print(printer);
    }
    paths_ << path;
    ImagePrinter images(page_dpi);
    calculator().print(images);
    int number = 0;
    for (const QImage& page : images.pages()) {
      const QString picture = directory_ + QStringLiteral("/schedule-%1.png").arg(++number);
      if (page.save(picture)) paths_ << picture;
    }
  }

  MainWindow& window_;
  QString directory_;
  QStringList paths_;
};

}  // namespace

QStringList renderStartPage(MainWindow& window, const QString& directory) {
  window.resize(picture_size);
  window.show();
  settle();  // the page comes after the first paint
  const QString path = directory + QStringLiteral("/start.png");
  return window.grab().save(path) ? QStringList{path} : QStringList();
}

QStringList renderPreview(MainWindow& window, const QString& directory) {
  window.resize(picture_size);
  window.show();
  return Walk(window, directory).run();
}

}  // namespace depcalc::desktop
