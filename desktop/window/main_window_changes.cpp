// Changes of the open company that are not made on the calculator's screens.
#include "DepCalc/recalculation.h"
#include "changes/company_steps.h"
#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/history_dialog.h"
#include "desktop/window/main_window.h"
#include "desktop/window/recalculating.h"
#include "desktop/window/status_line.h"
#include "desktop/window/workspace.h"

namespace depcalc::desktop {
namespace {

/// The asset that a step to that side is about; nothing where it is about none, or several.
std::optional<int> assetOfNextStep(Recorder& recorder, Side side) {
  std::optional<int> asset;
  trapped("DepCalcDesktop::assetOfNextStep", [&] {
    const std::size_t position = recorder.history().position();
    const bool undoing = side == Side::before;
    asset = assetOfStep(recorder.changesOf(undoing ? position - 1 : position), undoing);
  });
  return asset;
}

bool canMove(const Recorder* recorder, Side side) {
  if (recorder == nullptr) return false;
  return side == Side::before ? recorder->canUndo() : recorder->canRedo();
}

}  // namespace

void MainWindow::setMultiUser(bool on) {
  if (company() == nullptr || !mayLeave()) return;
  endCalculator();
  CompanyInfo info = company()->info();
  info.multi_user = on;
  setCompanyInfo(info);
  showPlaceholder();
  if (!isMultiUser()) startCalculator();
  showStatus();
}

void MainWindow::setCompanyInfo(const CompanyInfo& info) {
  try {
    application_->setInfo(info);
  } catch (const CompanyFileError& error) {
    failures_.tellUnlessAsked(qtText(error.what()));
  }
  // A register knows its company's name and fiscal years.
  saved_.forget();
  workspace_->listAnew();
  followCompany();
  noteChanges();
  showStatus();
}

/// The calculator keeps the fiscal year that it was started with, and so does the form that shows.
void MainWindow::changeCompanyInfo(const CompanyInfo& info) {
  const bool other_year = info.first_month != company()->info().first_month;
  if (other_year && !mayLeave()) return;
  setCompanyInfo(info);
  if (!other_year || calculator_ == nullptr) return;
  if (company()->info() != info) {
    leaving_.forget();
    return;
  }
  startCalculator();
  if (calculator_ != nullptr && around_.settings.gives(Notice::recalculation) &&
      recalculating_->isDue()) {
    recalculating_->ask(FiscalYearEnds::company);
    leaving_.forget();
  }
}

void MainWindow::askRecalculation() {
  if (!mayLeave()) return;
  recalculating_->ask(FiscalYearEnds::own);
  leaving_.forget();
}

/// The calculator's current record would write old values back: it is read anew afterwards.
QString MainWindow::saveStep(std::int32_t asset, StepKind kind, const Save& save) {
  endCalculator();
  const QString problem = problemOfStep(*application_, kind, save);
  followCompany();
  noteChanges();
  startCalculator();
  if (calculator_ != nullptr) calculator_->selectAsset(asset);
  return problem;
}

void MainWindow::undo() { moveInHistory(Side::before); }

void MainWindow::redo() { moveInHistory(Side::after); }

/// What the user saves when asked is a step of its own: it is not what was to be undone.
void MainWindow::moveInHistory(Side side) {
  if (!canMove(application_->recorder(), side)) return;
  const int changes = application_->recorder()->changesMade();
  if (!mayLeave()) return;
  const bool saved = application_->recorder()->changesMade() != changes;
  if (canMove(application_->recorder(), side) && !saved) return goToStep(side);
  noteChanges();
  startCalculator();
  tell(side == Side::before
           ? tr("Your changes were saved. To undo them, too, choose Undo again.")
           : tr("Your changes were saved. What was undone before cannot be redone any more."));
}

/// The calculator holds records in memory: it is started anew.
void MainWindow::goToStep(Side side) {
  Recorder& recorder = *application_->recorder();
  const std::size_t position = recorder.history().position();
  const std::optional<int> asset = assetOfNextStep(recorder, side);
  endCalculator();
  const QString problem = problemOfSaving(*application_, [&]() -> std::optional<std::string> {
    side == Side::before ? recorder.undo() : recorder.redo();
    return std::nullopt;
  });
  followCompany();
  noteChanges();
  showPlaceholder();
  if (!isMultiUser()) startCalculator();
  if (calculator_ != nullptr && asset) calculator_->selectAsset(*asset);
  showStatus();
  if (problem.isEmpty()) return;
  const bool moved = recorder.history().position() != position;
  failures_.tellUnlessAsked(moved ? problem : tr("Nothing was changed. %1").arg(problem));
}

void MainWindow::showHistory() {
  HistoryDialog dialog([this] { return application_->recorder(); },
                       {.undo = [this] { undo(); }, .redo = [this] { redo(); }}, this);
  dialog.exec();
}

void MainWindow::noteChanges() {
  failures_.followChanges();
  if (company() == nullptr || backup_.follow(companyPath(), application_->revision())) return;
  status_->note(tr("No backup could be made"));
}

/// A copy may have taken the place of the file.
void MainWindow::followCompany() {
  const QString path = companyPath();
  if (path.isEmpty() || path == followed_path_) return;
  around_.backups.drop(followed_path_);
  followed_path_ = path;
  application_->recorder()->keepAt(around_.backups.historyOf(path).toStdString());
  around_.settings.addRecent(path);
  around_.settings.setLastCompany(path);
  showStatus();
}

}  // namespace depcalc::desktop
