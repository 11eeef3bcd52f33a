// What stands around the page: what its parts are, and what they ask of the window.
#include <QApplication>

#include "common/trapped.h"
#include "desktop/window/main_window.h"
#include "desktop/window/workspace.h"
#include "desktop/workspace/why_page.h"
#include "reports/reading/register_reading.h"

namespace depcalc::desktop {

void MainWindow::makeWorkspace(QMenu& edit, QMenu& view) {
  const auto all = [this] {
    std::shared_ptr<const RegisterOfAssets> assets;
    trapped("DepCalcDesktop::listAssets", [&] { assets = registerAsSaved(); });
    return assets;
  };
  workspace_ = new Workspace(*this, {edit, view}, around_.settings,
                             {.revision = [this] { return revision(); },
                              .read_all = all,
                              .read = [this](std::int32_t number) { return savedAssetAt(number); },
                              .choose = [this](std::int32_t number) { selectAsset(number); },
                              .edit = [this](std::int32_t number) { editAsset(number); },
                              .fill = [this](InsightPanel& panel) { fillInsight(panel); },
                              .leave = [this] { page_->takeKeys(); }});
}

void MainWindow::fillToolbar() {
  workspace_->addTool(*asset_menu_->item("new"), tr("New Asset"), "new");
  workspace_->addTool(*asset_menu_->item("edit"), tr("Edit"), "edit");
  workspace_->addTool(*dispose_, tr("Dispose…"), "dispose");
  workspace_->addToolSeparator();
  workspace_->addTool(undo_menu_->undoAction(), undo_menu_->undoAction().iconText(), "undo");
  workspace_->addTool(undo_menu_->redoAction(), undo_menu_->redoAction().iconText(), "redo");
  workspace_->addToolSeparator();
  workspace_->addTool(*import_, tr("Import…"), "import");
  workspace_->addToolSeparator();
  workspace_->addTool(*report_actions_.first(), tr("Reports"), "reports");
  workspace_->addTool(*print_actions_.first(), tr("Print"), "print");
}

/// Insight's pages, in the order of their tabs.
void MainWindow::fillInsight(InsightPanel& panel) {
  panel.addPage(new WhyPage(&panel));
  addChartPages(panel);
}

/// The keys stay in the list, for the next choice.
void MainWindow::selectAsset(std::int32_t number) {
  if (calculator_ == nullptr) return;
  const QPointer<QWidget> keys = QApplication::focusWidget();
  calculator_->selectAsset(number);
  if (keys != nullptr) keys->setFocus();
}

/// Where the user stays with the asset that is being entered, its form gets the keys.
void MainWindow::editAsset(std::int32_t number) {
  if (calculator_ == nullptr) return;
  if (!calculator_->goToRegister()) return page_->takeKeys();
  calculator_->selectAsset(number);
  if (calculator_->currentAsset() == number) asset_menu_->item("edit")->trigger();
}

std::optional<SavedAsset> MainWindow::savedAssetAt(std::int32_t number) {
  if (company() == nullptr || number < 1) return std::nullopt;
  std::optional<SavedAsset> asset;
  const auto file = application_->CompanyFile();
  trapped("DepCalcDesktop::savedAssetAt", [&] {
    const auto table = file->OpenTable(asset_table_name);
    if (number < table->Count()) asset = readSavedAsset(file, number, around_.today());
  });
  return asset;
}

}  // namespace depcalc::desktop
