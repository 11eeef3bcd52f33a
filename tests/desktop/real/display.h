// An X server of the tests' own with a window manager on it.
#pragma once

#include <sys/types.h>

#include <string>

namespace depcalc::testing {

/// Starts Xvfb on a free display and openbox on that, and names the display in DISPLAY. Both end
/// with this object, and with the process. Throws std::runtime_error where one does not start.
class Display {
 public:
  Display();
  ~Display();
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

 private:
  void startServer();
  void startWindowManager();

  pid_t server_ = -1;
  pid_t manager_ = -1;
};

}  // namespace depcalc::testing
