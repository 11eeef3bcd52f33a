// depcalc completion: what a shell reads to complete the command line.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/command.h"
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

  void declare(CLI::App& app) override {
    app_ = &app;
    app.add_option("SHELL", shell_, "The shell: bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}))
        ->option_text(" ");
    app.footer(
        "The Debian package installs all three.\n"
        "Exit status: 0 success, 2 wrong usage, 3 the output cannot be written.");
  }

  ExitStatus run(Surroundings& surroundings) override {
    surroundings.out.write(completionsFor(*app_->get_parent(), shell_));
    return exit_success;
  }

 private:
  const CLI::App* app_ = nullptr;
  std::string shell_;
};

}  // namespace

std::unique_ptr<Command> completionCommand() { return std::make_unique<CompletionCommand>(); }

}  // namespace depcalc
