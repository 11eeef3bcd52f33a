// What stands around the page: what its parts are, and what they ask of the window.
#include "common/trapped.h"
#include "desktop/window/main_window.h"
#include "reports/reading/register_reading.h"

namespace depcalc::desktop {

void MainWindow::makeWorkspace(QMenu& view) {
  workspace_ = new Workspace(*this, view, around_.settings,
                             {.read = [this](std::int32_t number) { return savedAssetAt(number); },
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
  workspace_->addTool(*report_actions_.first(), tr("Reports"), "reports");
  workspace_->addTool(*print_actions_.first(), tr("Print"), "print");
}

/// Insight's pages, in the order of their tabs.
void MainWindow::fillInsight(InsightPanel&) {}

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
