// What was done to the company is undone, and done again.
#include <QLabel>

#include "changes/company_steps.h"
#include "common/trapped.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/history_dialog.h"
#include "desktop/window/main_window.h"

namespace depcalc::desktop {

std::optional<std::string> MainWindow::asStep(
    StepKind kind, const std::function<std::optional<std::string>()>& save) {
  std::optional<std::string> report;
  application_->called(kind, [&] { report = save(); });
  return report;
}

void MainWindow::undo() { moveInHistory(Side::before); }

void MainWindow::redo() { moveInHistory(Side::after); }

/// What the user saves when asked is a step of its own: it is not what was to be undone.
void MainWindow::moveInHistory(Side side) {
  const auto possible = [this, side] {
    const Recorder* const recorder = application_->recorder();
    if (recorder == nullptr) return false;
    return side == Side::before ? recorder->canUndo() : recorder->canRedo();
  };
  if (!possible()) return;
  const int changes = application_->recorder()->changesMade();
  if (!mayLeave()) return;
  const bool saved = application_->recorder()->changesMade() != changes;
  if (possible() && !saved) return goToStep(side);
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
  const std::optional<int> asset = assetOfNextStep(side);
  endCalculator();
  const QString problem = problemOfSaving([&]() -> std::optional<std::string> {
    side == Side::before ? recorder.undo() : recorder.redo();
    return std::nullopt;
  });
  followCompany();
  noteChanges();
  showPlaceholder();
  if (!application_->CompanyFile()->IsMultiUser()) startCalculator();
  if (calculator_ != nullptr && asset) calculator_->selectAsset(*asset);
  showStatus();
  if (problem.isEmpty() || told_) return;
  const bool moved = recorder.history().position() != position;
  tell(moved ? problem : tr("Nothing was changed. %1").arg(problem));
}

std::optional<int> MainWindow::assetOfNextStep(Side side) {
  std::optional<int> asset;
  trapped("DepCalcDesktop::assetOfNextStep", [&] {
    Recorder& recorder = *application_->recorder();
    const std::size_t position = recorder.history().position();
    const bool undoing = side == Side::before;
    asset = assetOfStep(recorder.changesOf(undoing ? position - 1 : position), undoing);
  });
  return asset;
}

void MainWindow::showHistory() {
  HistoryDialog dialog([this] { return application_->recorder(); },
                       {.undo = [this] { undo(); }, .redo = [this] { redo(); }}, this);
  dialog.exec();
}

void MainWindow::showSaved() {
  const Recorder& recorder = *application_->recorder();
  const auto steps = static_cast<int>(recorder.stepsDone());
  QStringList parts;
  if (steps > 0) parts << (steps == 1 ? tr("Saved 1 change") : tr("Saved %1 changes").arg(steps));
  if (recorder.canUndo()) parts << tr("Undo available");
  if (!recorder.isKept()) parts << tr("Undo ends when the company is closed");
  for (QString& part : parts) part += tr("   ·   ");
  saved_label_->setText(parts.join(QString()));
}

/// What can be read of a company, be it open or not.
std::optional<Content> MainWindow::contentOf(const QString& path) {
  std::optional<Content> content;
  trapped("DepCalcDesktop::contentOf", [&] {
    if (isOpen(path)) {
      content = application_->recorder()->content();
      return;
    }
    try {
      const auto closed = around_.files.open(path.toStdString());
      content = depcalc::contentOf(*closed->file(), closed->info(), followedTables());
      closed->close();
    } catch (const CompanyFileError&) {
      // It may be damaged, and restored for that.
    }
  });
  return content;
}

}  // namespace depcalc::desktop
