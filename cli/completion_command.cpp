// depcalc completion: what a shell reads to complete the command line.
#include <memory>
#include <string>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/command_words.h"
#include "cli/completions.h"

namespace depcalc {
namespace {

class CompletionCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "completion"; }
  [[nodiscard]] std::string_view summary() const override {
    return "Write completions for bash, zsh or fish";
  }
  [[nodiscard]] std::string_view examples() const override {
    return R"text(  eval "$(depcalc completion bash)"
      complete commands, options and their values in this shell
)text";
  }

  void declare(Arguments& arguments) override {
    program_ = &arguments.program();
    arguments.positional("SHELL", shell_, "The shell: bash, zsh or fish")
        .required()
        .oneOf({"bash", "zsh", "fish"});
    arguments.footer(
        "The Debian package installs all three.\n"
        "Exit status: 0 success, 2 wrong usage, 3 the output cannot be written.");
  }

  ExitStatus run(Surroundings& surroundings) override {
    surroundings.out.write(completionsFor(wordsOf(*program_), commandsOf(*program_), shell_));
    return exit_success;
  }

 private:
  const CLI::App* program_ = nullptr;
  std::string shell_;
};

}  // namespace

std::unique_ptr<Command> completionCommand() { return std::make_unique<CompletionCommand>(); }

}  // namespace depcalc
