// depcalc help: the help of a command.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/suggestion.h"

namespace depcalc {
namespace {

/// Not by way of `root.help()`, which is the help of the command that runs: this one.
std::string helpOf(const CLI::App& app, const CLI::App& root) {
  const std::string usage =
      &app == &root ? root.get_name() : root.get_name() + " " + app.get_name();
  return app.get_formatter()->make_help(&app, usage, CLI::AppFormatMode::Normal);
}

class HelpCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "help"; }
  [[nodiscard]] std::string_view summary() const override { return "Print the help for a command"; }
  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc help import
      the same as depcalc import --help
)";
  }

  void declare(CLI::App& app) override {
    app_ = &app;
    app.add_option("COMMAND", command_, "The command; without one, all commands are listed")
        ->option_text(" ");
    app.footer("Exit status: 0 success, 2 unknown command.");
  }

  ExitStatus run(Surroundings& surroundings) override {
    const CLI::App& root = *app_->get_parent();
    const auto named =
        root.get_subcommands([this](const CLI::App* sub) { return sub->get_name() == command_; });
    if (!command_.empty() && named.empty()) {
      surroundings.errors.write("depcalc: " + unknownCommand(root, command_));
      return exit_usage;
    }
    surroundings.out.write(helpOf(named.empty() ? root : *named.front(), root));
    return exit_success;
  }

 private:
  const CLI::App* app_ = nullptr;
  std::string command_;
};

}  // namespace

std::unique_ptr<Command> helpCommand() { return std::make_unique<HelpCommand>(); }

}  // namespace depcalc
