// What a subcommand is.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "cli/clock.h"
#include "cli/output.h"
#include "values/date.h"

namespace depcalc {

class Arguments;

/// How a command ends, for the shell.
enum ExitStatus : int {
  exit_success = 0,
  exit_bad_data = 1,  ///< some input was refused
  exit_usage = 2,     ///< the command line makes no sense
  exit_system = 3,    ///< a file cannot be read or written
  exit_locked = 4,    ///< the company file is held by another program
};

/// What a command runs in.
struct Surroundings {
  Output& out;
  Output& errors;
  Date today;  ///< by the clock; commands let --today replace it
  Now now = std::chrono::steady_clock::now;
};

class Command {
 public:
  virtual ~Command() = default;

  [[nodiscard]] virtual std::string_view name() const = 0;
  [[nodiscard]] virtual std::string_view summary() const = 0;
  /// Lines for the beginning of --help.
  [[nodiscard]] virtual std::string_view examples() const = 0;

  /// Adds the options and arguments.
  virtual void declare(Arguments& arguments) = 0;
  /// Does what the options say. Messages go to `errors`. Whether `out` could be written is
  /// looked at afterwards by the caller.
  virtual ExitStatus run(Surroundings& surroundings) = 0;
};

std::unique_ptr<Command> scheduleCommand();
std::unique_ptr<Command> newCommand();
std::unique_ptr<Command> importCommand();
std::unique_ptr<Command> listCommand();
std::unique_ptr<Command> recalculateCommand();
std::unique_ptr<Command> deleteCommand();
std::unique_ptr<Command> disposeCommand();
std::unique_ptr<Command> unitsCommand();
std::unique_ptr<Command> checkCommand();
std::unique_ptr<Command> registerCommand();
std::unique_ptr<Command> printCommand();
std::unique_ptr<Command> reportCommand();
std::unique_ptr<Command> explainCommand();
std::unique_ptr<Command> dumpCommand();
std::unique_ptr<Command> copyCommand();
std::unique_ptr<Command> serverCommand();
std::unique_ptr<Command> helpCommand();
std::unique_ptr<Command> completionCommand();

/// Every subcommand, in the order of the help.
std::vector<std::unique_ptr<Command>> allCommands();

}  // namespace depcalc
