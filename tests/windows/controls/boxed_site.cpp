#include "tests/windows/controls/boxed_site.h"

#include <utility>

#include "tests/windows/controls/box_clicker.h"

namespace depcalc::testing {

BoxedSite::BoxedSite(std::ostream& out, Date today, std::function<HWND()> owner)
    : DriveSite(out, today), out_(out), boxes_({.owner = std::move(owner)}) {}

BoxAnswer BoxedSite::showBox(const MessageBox& box) {
  const BoxAnswer answer = answerFor(box);
  BoxClicker clicker(box, answer);
  const BoxAnswer given = boxes_.showBox(box);
  if (const std::string trouble = clicker.trouble(); !trouble.empty()) complain(trouble);
  if (given != answer) complain("another answer than " + std::string(boxAnswerText(answer)));
  return given;
}

/// The system has called who shows the box: nothing may be thrown through it.
BoxAnswer BoxedSite::answerFor(const MessageBox& box) {
  try {
    return DriveSite::showBox(box);
  } catch (const drive::Unanswered& question) {
    complain(question.what());
    return BoxAnswer::no;
  }
}

Printer& BoxedSite::systemPrinter() {
  printer_ = std::make_unique<TwicePrinted>(DriveSite::systemPrinter(), out_);
  return *printer_;
}

}  // namespace depcalc::testing
