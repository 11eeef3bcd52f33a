#include "tests/drive/drive_site.h"

#include <algorithm>
#include <array>

#include "values/runtime_error.h"

namespace depcalc::drive {
namespace {

constexpr std::array<std::string_view, 3> screens = {"DepCalcCtl1", "DepCalcDisplayCtl1",
                                                     "DepCalcView1"};

}  // namespace

BoxAnswer DriveSite::showBox(const MessageBox& box) {
  if (box.buttons == BoxButtons::ok) return BoxAnswer::ok;
  if (answers_.empty() && answerer_) return answerer_(box);
  if (answers_.empty() || !canAnswer(box.buttons, answers_.front())) {
    throw Unanswered("no answer was queued for: " + box.title + " | " + box.text);
  }
  const BoxAnswer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

void DriveSite::setPointer(Pointer pointer) {
  out_ << (pointer == Pointer::hourglass ? "hourglass\n" : "pointer\n");
}

Printer& DriveSite::systemPrinter() {
  if (!has_printer_) throw RuntimeError(482, "Printer error");
  return recorder_;
}

void DriveSite::event(std::string_view control, std::string_view event) {
  const bool is_screen = std::find(screens.begin(), screens.end(), control) != screens.end();
  if (is_screen && event == "Show") out_ << "view " << control << '\n';
}

}  // namespace depcalc::drive
