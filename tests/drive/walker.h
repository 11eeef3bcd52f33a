// A user who does anything at all, as a script.
#pragma once

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "tests/drive/driver.h"

namespace depcalc::drive {

/// Picks commands for what is shown, runs them, answers questions at random, and keeps it all as
/// a script that repeats what happened.
class Walker {
 public:
  Walker(unsigned seed, DriveHost& host, ScreenMaker& screens, const DriveOptions& options);

  /// One action of the user; often the focus and a text. Answers what was printed meanwhile.
  std::string step();

  [[nodiscard]] Driver& driver() { return driver_; }
  /// The commands so far, answers included.
  [[nodiscard]] std::size_t commands() const { return commands_.size(); }
  [[nodiscard]] std::string script() const;
  /// Lets go of the script and the printed pages so far, so that a long walk takes no more memory
  /// than its calculator.
  void forget();

 private:
  int below(int count);
  bool chance(int percent) { return below(100) < percent; }
  template <typename Values>
  const auto& oneOf(const Values& values) {
    return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
  }

  BoxAnswer answer(const MessageBox& box);
  void run(const std::string& command);
  void actOn(const Control& control, const std::string& name);
  void typeInto(const std::string& name);
  bool crowded() const;
  bool actWithAPlan();
  void fillForm();
  void useHost();
  std::vector<std::pair<const Control*, std::string>> shownControls() const;

  std::mt19937 random_;
  std::ostringstream out_;
  std::vector<std::string> commands_;
  std::vector<std::string> answers_;  // of the command under way
  Driver driver_;
};

}  // namespace depcalc::drive
