// A record of what happened to the controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/site.h"

namespace depcalc {

/// Hears of every event and box, as it happens, in order.
class Trace {
 public:
  virtual ~Trace() = default;

  /// "BasisText" and "Validate".
  virtual void event(std::string_view control, std::string_view event) = 0;
  /// After the answer.
  virtual void box(const MessageBox& box, BoxAnswer answer) = 0;
};

/// Keeps a line for each: "BasisText.Validate", "box Basis | The basis must … | OK -> OK".
class TraceLines : public Trace {
 public:
  void event(std::string_view control, std::string_view event) override;
  void box(const MessageBox& box, BoxAnswer answer) override;

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
  /// The lines so far, which are then forgotten.
  std::vector<std::string> take();

 private:
  std::vector<std::string> lines_;
};

/// "box TITLE | TEXT | BUTTONS -> ANSWER".
std::string boxLine(const MessageBox& box, BoxAnswer answer);

}  // namespace depcalc
