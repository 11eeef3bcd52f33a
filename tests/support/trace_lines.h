// A record of what happened to the controls.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/trace.h"

namespace depcalc::testing {

/// "box TITLE | TEXT | BUTTONS -> ANSWER".
inline std::string boxLine(const MessageBox& box, BoxAnswer answer) {
  std::string line = "box " + box.title + " | " + box.text + " | ";
  line.append(boxButtonsText(box.buttons)).append(" -> ").append(boxAnswerText(answer));
  return line;
}

/// Keeps a line for each: "BasisText.Validate", "box Basis | The basis must … | OK -> OK".
class TraceLines : public Trace {
 public:
  void event(std::string_view control, std::string_view event) override {
    lines_.push_back(std::string(control).append(".").append(event));
  }
  void box(const MessageBox& box, BoxAnswer answer) override {
    lines_.push_back(boxLine(box, answer));
  }

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
  /// The lines so far, which are then forgotten.
  std::vector<std::string> take() { return std::exchange(lines_, {}); }

 private:
  std::vector<std::string> lines_;
};

}  // namespace depcalc::testing
