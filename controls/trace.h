// Who hears what happens to the controls.
#pragma once

#include <string_view>

#include "controls/site.h"

namespace depcalc {

/// Hears of every event and box, as it happens, in order: what tests hold the screens to.
class Trace {
 public:
  virtual ~Trace() = default;

  /// "BasisText" and "Validate".
  virtual void event(std::string_view control, std::string_view event) = 0;
  /// After the answer.
  virtual void box(const MessageBox& box, BoxAnswer answer) = 0;
};

}  // namespace depcalc
