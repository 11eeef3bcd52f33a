// What the user is told where a company file fails, and copies of it.
#include <QLabel>
#include <QScopedValueRollback>
#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/host/place.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/failed_change_box.h"
#include "desktop/window/file_dialogs.h"
#include "desktop/window/file_names.h"
#include "desktop/window/main_window.h"

namespace depcalc::desktop {
namespace {

const QString file_suffix = QStringLiteral(".company");

template <std::size_t count>
bool isOneOf(std::string_view procedure, const std::string_view (&procedures)[count]) noexcept {
  return std::find(std::begin(procedures), std::end(procedures), procedure) != std::end(procedures);
}

/// Whether assets may now lack what their records have: the calculator shows them, and saves them,
/// as far as there was memory for them.
bool leavesAssetsInPart(const ErrorReport& report) noexcept {
  constexpr std::string_view reading[] = {"DepCalc::ReadData", "DepCalc::ReadTableInfo",
                                          "DepCalc::Get DepItem", "DepCalc::Let DepItem"};
  return report.isOfMemory() && isOneOf(report.procedure, reading);
}

/// Whether a change may now be done by half: what it had committed by then would be kept.
bool leavesAChangeInPart(const ErrorReport& report) noexcept {
  constexpr std::string_view writing[] = {"DepCalc::WriteData", "DepCalc::WriteTableInfo",
                                          "DepCalc::DeleteRecord",
                                          "DepCalc::DepCalcContSaveRecord"};
  return report.isOfMemory() && isOneOf(report.procedure, writing);
}

/// What the calculator deals with, what a printer says, which printing tells, and what the company
/// file met when it dealt with a change that had failed.
bool isToldElsewhere(const ErrorReport& report) {
  constexpr int printer_error = 482;
  return report.isOfValues() || report.number == printer_error ||
         report.procedure == "DepCalc::company file";
}

}  // namespace

/// Comes in the middle of what the calculator does, which goes on after it: what is to be told
/// waits until that has come to its end. Nothing is allocated before changes are refused.
void MainWindow::noteFailure(const ErrorReport& report) {
  if (company() == nullptr || isToldElsewhere(report)) return;
  const bool of_reading = leavesAssetsInPart(report);
  if (of_reading || leavesAChangeInPart(report)) {
    company()->refuseChanges();
    tellChangesAreRefused(of_reading);
    return;
  }
  const auto trouble = company()->takeTrouble();
  if (report.isOfMemory()) {
    tellLater(
        tr("There was not enough memory to complete the last step. The company file still holds "
           "what was saved before. Close other programs, then try again."));
    return;
  }
  const QString reason =
      qtText(trouble.has_value() ? std::string_view(*trouble) : report.description);
  tellLater(tr("The last step could not be completed.\n\n%1").arg(reason));
}

void MainWindow::tellChangesAreRefused(bool of_reading) {
  note_label_->setText(tr("Out of memory: open the company again to change it"));
  tellLater(
      of_reading
          ? tr("There was not enough memory to read an asset completely. To protect its data, the "
               "company cannot be changed until it has been opened again. Close other programs "
               "first.")
          : tr("There was not enough memory to complete the last change. To protect the assets, "
               "the company cannot be changed until it has been opened again. Close other "
               "programs first."));
}

/// One failure has many reports: the first says most. A change that the user has given up was told.
void MainWindow::tellLater(const QString& text) {
  if (told_ || !to_tell_.isEmpty()) return;
  to_tell_ = text;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (const QString waiting = to_tell_; !waiting.isEmpty()) tell(waiting);
      },
      Qt::QueuedConnection);
}

FailedChangeAnswer MainWindow::askAboutChange(const FailedChange& change) {
  const QScopedValueRollback asking(asking_, true);
  told_ = true;
  const int question = ++questions_;
  const FailedChangeAnswer answer = askAboutFailedChange(
      change, [this] { return askCopyPath(); }, this);
  const bool given_up = std::holds_alternative<GiveUp>(answer);
  // What was answered may fail, too, and be asked about before this is heard.
  QMetaObject::invokeMethod(
      this,
      [this, question, given_up] {
        if (question == questions_) endTelling(given_up);
      },
      Qt::QueuedConnection);
  return answer;
}

/// The calculator has ended what it did when the user was asked.
void MainWindow::endTelling(bool given_up) {
  told_ = false;
  if (!given_up) return;
  given_up_revision_ = revision();
  note_label_->setText(tr("The last change was not saved"));
}

QString MainWindow::askCopyPath() {
  const QString proposed = tr("%1/%2 copy").arg(companyFolder(), fileNameAt(companyPath()));
  const QString path = askFileToSave(this, {.title = tr("Save a Copy As"),
                                            .filter = tr("Company files (*.company)"),
                                            .proposed = proposed + file_suffix});
  return path.isEmpty() ? path : withSuffix(path, file_suffix);
}

void MainWindow::askCopy() {
  const QString path = askCopyPath();
  if (!path.isEmpty()) saveCopy(path);
}

bool MainWindow::saveCopy(const QString& path) {
  try {
    company()->saveCopy(wholePlace(path).toStdString());
  } catch (const CompanyFileError& error) {
    tell(qtText(error.what()));
    return false;
  }
  followCompany();
  return true;
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

/// Once another change is saved, the one that was given up is no news.
void MainWindow::clearNote() {
  if (!given_up_revision_ || given_up_revision_ == revision()) return;
  given_up_revision_.reset();
  note_label_->clear();
}

}  // namespace depcalc::desktop
