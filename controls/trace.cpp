#include "controls/trace.h"

#include <utility>

namespace depcalc {

void TraceLines::event(std::string_view control, std::string_view event) {
  lines_.push_back(std::string(control).append(".").append(event));
}

void TraceLines::box(const MessageBox& box, BoxAnswer answer) {
  lines_.push_back(boxLine(box, answer));
}

std::vector<std::string> TraceLines::take() { return std::exchange(lines_, {}); }

std::string boxLine(const MessageBox& box, BoxAnswer answer) {
  std::string line = "box " + box.title + " | " + box.text + " | ";
  line.append(boxButtonsText(box.buttons)).append(" -> ").append(boxAnswerText(answer));
  return line;
}

}  // namespace depcalc
