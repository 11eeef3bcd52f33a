// Surroundings for tests: boxes are answered from a queue, everything is recorded.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "controls/site.h"
#include "values/runtime_error.h"

namespace depcalc::testing {

/// Boxes with one button are answered OK. A question with no answer queued is error 5, a test's
/// mistake; `unanswered` then holds its text.
class ScriptedSite : public Site {
 public:
  BoxAnswer showBox(const MessageBox& box) override {
    boxes.push_back(box);
    if (box.buttons == BoxButtons::ok) return BoxAnswer::ok;
    if (answers.empty() || !canAnswer(box.buttons, answers.front())) {
      unanswered = box.text;
      throw RuntimeError::invalidCall();
    }
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void beep() override { ++beeps; }
  void setPointer(Pointer pointer) override { pointers.push_back(pointer); }
  Date today() override { return current_day; }
  Printer& systemPrinter() override {
    if (printer == nullptr) throw RuntimeError(482, "Printer error");
    return *printer;
  }
  double twipsPerPixel() override { return 15; }
  TextExtent textExtent(std::string_view text, const Font& font, int wrap_width) override {
    return plainTextExtent(text, font, wrap_width);
  }

  /// The boxes so far, which are then forgotten.
  std::vector<MessageBox> takeBoxes() { return std::exchange(boxes, {}); }

  std::deque<BoxAnswer> answers;
  std::vector<MessageBox> boxes;
  std::string unanswered;
  std::vector<Pointer> pointers;
  int beeps = 0;
  Date current_day = Date::strict(2024, 6, 15);
  Printer* printer = nullptr;
};

}  // namespace depcalc::testing
