// Answers a message box as a user does: by its buttons.
#pragma once

#include <windows.h>

#include <string>
#include <thread>

#include "controls/site.h"

namespace depcalc::testing {

/// Waits for a box beside the thread that shows it, reads it, and presses the button.
class BoxClicker {
 public:
  BoxClicker(const MessageBox& box, BoxAnswer answer);
  /// Waits for the end of the box.
  ~BoxClicker();
  BoxClicker(const BoxClicker&) = delete;
  BoxClicker& operator=(const BoxClicker&) = delete;

  /// What was wrong with the box; "" once it was as it should be.
  [[nodiscard]] std::string trouble();

 private:
  void wait(const MessageBox& box, int button);

  std::string trouble_ = "no box came";
  std::thread thread_;
};

}  // namespace depcalc::testing
