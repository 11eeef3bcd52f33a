// The parts of the window, and what each has to do with the others.
#include <QMenu>
#include <QMenuBar>

#include "DepCalc/recalculation.h"
#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/asset_changes.h"
#include "desktop/window/company_dialogs.h"
#include "desktop/window/help_boxes.h"
#include "desktop/window/hints.h"
#include "desktop/window/importing.h"
#include "desktop/window/insight_pages.h"
#include "desktop/window/main_menus.h"
#include "desktop/window/main_window.h"
#include "desktop/window/recalculating.h"
#include "desktop/window/reports_keeping.h"
#include "desktop/window/status_line.h"
#include "desktop/window/user_state.h"
#include "desktop/window/workspace.h"

namespace depcalc::desktop {

void MainWindow::makeHints() {
  auto* const middle = new QWidget(this);
  middle->setAccessibleName(tr("Calculator and hint"));
  const auto saved = [this](std::int32_t number) { return saved_.assetAt(number); };
  hints_ =
      new Hints(*page_, *middle, around_.settings, [this, saved]() -> std::optional<UserState> {
        if (calculator_ == nullptr) return std::nullopt;
        return userStateIn(*calculator_, around_.settings.isSample(companyPath()), saved);
      });
  connect(hints_, &Hints::guideWanted, this, &MainWindow::openGuide);
  setCentralWidget(middle);
}

void MainWindow::makeDialogs() {
  companies_ = std::make_unique<CompanyDialogs>(CompanyDialogs::Surroundings{
      .files = around_.files,
      .backups = around_.backups,
      .settings = around_.settings,
      .documents = around_.documents,
      .window = *this,
      .open_company = [this] { return companyPath(); },
      .open = [this](const QString& path) { openCompany(path); },
      .create = [this](const QString& path, const CompanyInfo& info) { createCompany(path, info); },
      .restore = [this](const Backup& backup, const QString& path) { restoreBackup(backup, path); },
      .tell = [this](const QString& text) { tell(text); }});
}

void MainWindow::makeChanges() {
  const auto save = [this](std::int32_t asset, StepKind kind, const Save& step) {
    return saveStep(asset, kind, step);
  };
  changes_ = std::make_unique<AssetChanges>(
      AssetChanges::Surroundings{.application = *application_,
                                 .failures = failures_,
                                 .site = site_,
                                 .settings = around_.settings,
                                 .window = *this,
                                 .today = around_.today,
                                 .calculator = [this] { return calculator(); },
                                 .may_leave = [this] { return mayLeave(); },
                                 .stay = [this] { leaving_.forget(); },
                                 .save = save});
  importing_ = std::make_unique<Importing>(
      Importing::Surroundings{.application = *application_,
                              .failures = failures_,
                              .settings = around_.settings,
                              .window = *this,
                              .today = around_.today,
                              .folder = [this] { return companies_->folder(); },
                              .is_open = [this](const QString& path) { return isOpen(path); },
                              .may_leave = [this] { return calculator_ != nullptr && mayLeave(); },
                              .stay = [this] { leaving_.forget(); },
                              .note = [this](const QString& text) { status_->note(text); },
                              .save = save});
  recalculating_ = std::make_unique<Recalculating>(
      Recalculating::Surroundings{.application = *application_,
                                  .failures = failures_,
                                  .window = *this,
                                  .today = around_.today,
                                  .keep_backup = [this] { return keepFreshBackup(); },
                                  .end_calculator = [this] { endCalculator(); },
                                  .start_calculator = [this] { startCalculator(); }});
}

void MainWindow::makeMenus() {
  menus_ = new MainMenus(*menuBar(),
                         {.new_company = [this] { companies_->askNew(); },
                          .open_company = [this] { companies_->askToOpen(); },
                          .open_from_server = [this] { companies_->askOnServer(); },
                          .open = [this](const QString& path) { openCompany(path); },
                          .close_company = [this] { closeCompany(); },
                          .save_copy =
                              [this] {
                                const QString path = companies_->askCopy();
                                if (!path.isEmpty()) saveCopy(path);
                              },
                          .restore_backup = [this] { companies_->askBackup(); },
                          .import = [this] { importing_->ask(); },
                          .set_multi_user = [this](bool on) { setMultiUser(on); },
                          .print = [this] { printing_.print(); },
                          .preview = [this] { printing_.preview(); },
                          .quit = [this] { close(); },
                          .undo = {.undo = [this] { undo(); },
                                   .redo = [this] { redo(); },
                                   .history = [this] { showHistory(); }},
                          .preferences = [this] { askPreferences(); },
                          .company_info = [this] { askCompanyInfo(); },
                          .recalculate = [this] { askRecalculation(); },
                          .start_calculator = [this] { startCalculator(); },
                          .dispose = [this] { changes_->dispose(); },
                          .undo_disposal = [this] { changes_->putBack(); },
                          .units = [this] { changes_->enterUnits(); },
                          .report = [this](ReportKind kind) { showReports(kind); },
                          .guide = [this] { hints_->openGuide(); },
                          .sample_company = [this] { openSampleCompany(); },
                          .topic = [this](int link) { showHelpTopic(link); },
                          .about = [this] { showAbout(this); },
                          .calculator = [this] { return calculator(); }},
                         around_.settings, *page_);
  makeWorkspace();
  menus_->finish();
  fillToolbar();
  for (QMenu* menu : findChildren<QMenu*>()) menu->setAccessibleName(menu->title().remove(u'&'));
}

bool MainWindow::isThere(Need need) {
  switch (need) {
    case Need::company:
      return company() != nullptr;
    case Need::calculator:
      return calculator_ != nullptr;
    case Need::assets:
      return calculator_ != nullptr && calculator_->assetCount().value_or(0) > 0;
    case Need::saved_asset:
      return calculator_ != nullptr && calculator_->currentAsset().has_value();
    case Need::disposed_asset:
      return changes_->isDisposed();
  }
  return false;
}

void MainWindow::makeWorkspace() {
  auto* const insight = new InsightPages(
      *this, {.calculator = [this] { return calculator(); },
              .press_edit = [this] { menus_->assetMenu().item("edit")->trigger(); },
              .edit = [this](std::int32_t number) { editAsset(number); },
              .leave = [this] { page_->takeKeys(); },
              .folder = [this] { return companies_->folder(); },
              .company_path = [this] { return companyPath(); }});
  const auto all = [this] {
    std::shared_ptr<const RegisterOfAssets> assets;
    trapped("DepCalcDesktop::listAssets", [&] { assets = saved_.read(); });
    return assets;
  };
  workspace_ =
      new Workspace(*this, {menus_->edit(), menus_->view()}, around_.settings,
                    {.revision = [this] { return application_->revision(); },
                     .read_all = all,
                     .read = [this](std::int32_t number) { return saved_.assetAt(number); },
                     .choose = [this](std::int32_t number) { selectAsset(number); },
                     .edit = [this](std::int32_t number) { editAsset(number); },
                     .fill = [insight](InsightPanel& panel) { insight->addTo(panel); },
                     .leave = [this] { page_->takeKeys(); }});
}

void MainWindow::fillToolbar() {
  const MainMenus::Offered& offered = menus_->offered();
  const UndoMenu& history = menus_->undoMenu();
  workspace_->addTool(*menus_->assetMenu().item("new"), tr("New Asset"), "new");
  workspace_->addTool(*menus_->assetMenu().item("edit"), tr("Edit"), "edit");
  workspace_->addTool(*offered.dispose, tr("Dispose…"), "dispose");
  workspace_->addToolSeparator();
  workspace_->addTool(history.undoAction(), history.undoAction().iconText(), "undo");
  workspace_->addTool(history.redoAction(), history.redoAction().iconText(), "redo");
  workspace_->addToolSeparator();
  workspace_->addTool(*offered.import, tr("Import…"), "import");
  workspace_->addToolSeparator();
  workspace_->addTool(*offered.report, tr("Reports"), "reports");
  workspace_->addTool(*offered.print, tr("Print"), "print");
}

void MainWindow::makeReports() {
  reports_ = new ReportsKeeping({.application = *application_,
                                 .saved = saved_,
                                 .settings = around_.settings,
                                 .calculator = [this] { return calculator(); },
                                 .folder = [this] { return companies_->folder(); },
                                 .has_unsaved = [this] { return hasUnsavedEntry(); },
                                 .tell = [this](const QString& text) { tell(text); }},
                                *this);
  connect(reports_, &ReportsKeeping::amountPointed, workspace_, &Workspace::chooseInReport);
}

}  // namespace depcalc::desktop
