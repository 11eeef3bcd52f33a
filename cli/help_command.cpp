// depcalc help: the help of a command.
#include <memory>
#include <string>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/command_words.h"
#include "cli/suggestion.h"

namespace depcalc {
namespace {

class HelpCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "help"; }
  [[nodiscard]] std::string_view summary() const override { return "Print the help for a command"; }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc help import
      the same as depcalc import --help
)";
  }

  void declare(Arguments& arguments) override {
    program_ = &arguments.program();
    arguments.positional("COMMAND", command_, "The command; without one, all commands are listed");
    arguments.footer("Exit status: 0 success, 2 unknown command.");
  }

  ExitStatus run(Surroundings& surroundings) override {
    const auto help = helpOf(*program_, command_);
    if (!help) {
      surroundings.errors.write("depcalc: " + unknownCommand(commandsOf(*program_), command_));
      return exit_usage;
    }
    surroundings.out.write(*help);
    return exit_success;
  }

 private:
  const CLI::App* program_ = nullptr;
  std::string command_;
};

}  // namespace

std::unique_ptr<Command> helpCommand() { return std::make_unique<HelpCommand>(); }

}  // namespace depcalc
