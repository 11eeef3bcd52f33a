#include "desktop/window/failure_telling.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/host/desktop_application.h"
#include "desktop/widgets/text_block.h"
#include "desktop/window/failed_change_box.h"
#include "desktop/window/warning_box.h"

namespace depcalc::desktop {
namespace {

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

FailureTelling::FailureTelling(DesktopApplication& application, QWidget& window, Doors doors)
    : application_(application),
      window_(window),
      doors_(std::move(doors)),
      hook_([this](const ErrorReport& report) { hear(report); }) {}

/// What waits to be told would say it once more.
void FailureTelling::tell(const QString& text) {
  to_tell_.clear();
  warn(text, &window_);
}

void FailureTelling::tellUnlessAsked(const QString& text) {
  if (!asked_) tell(text);
}

/// Comes in the middle of what the calculator does, which goes on after it: what is to be told
/// waits until that has come to its end. Nothing is allocated before changes are refused.
void FailureTelling::hear(const ErrorReport& report) {
  Company* const company = application_.company();
  if (company == nullptr || isToldElsewhere(report)) return;
  const bool of_reading = leavesAssetsInPart(report);
  if (of_reading || leavesAChangeInPart(report)) {
    company->refuseChanges();
    tellChangesAreRefused(of_reading);
    return;
  }
  const auto trouble = company->takeTrouble();
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

void FailureTelling::tellChangesAreRefused(bool of_reading) {
  doors_.note(tr("Out of memory: open the company again to change it"));
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
void FailureTelling::tellLater(const QString& text) {
  if (asked_ || !to_tell_.isEmpty()) return;
  to_tell_ = text;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (const QString waiting = to_tell_; !waiting.isEmpty()) tell(waiting);
      },
      Qt::QueuedConnection);
}

FailedChangeAnswer FailureTelling::ask(const FailedChange& change) {
  const QScopedValueRollback asking(asking_, true);
  asked_ = true;
  const int question = ++questions_;
  const FailedChangeAnswer answer = askAboutFailedChange(change, doors_.ask_copy, &window_);
  const bool given_up = std::holds_alternative<GiveUp>(answer);
  // What was answered may fail, too, and be asked about before this is heard.
  QMetaObject::invokeMethod(
      this,
      [this, question, given_up] {
        if (question == questions_) endAsking(given_up);
      },
      Qt::QueuedConnection);
  return answer;
}

/// The calculator has ended what it did when the user was asked.
void FailureTelling::endAsking(bool given_up) {
  asked_ = false;
  if (!given_up) return;
  given_up_revision_ = application_.revision();
  doors_.note(tr("The last change was not saved"));
}

void FailureTelling::followChanges() {
  if (!given_up_revision_ || given_up_revision_ == application_.revision()) return;
  given_up_revision_.reset();
  doors_.clear_note();
}

}  // namespace depcalc::desktop
