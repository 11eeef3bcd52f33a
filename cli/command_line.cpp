#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/arguments.h"
#include "cli/suggestion.h"
#include "common/heard_reports.h"
#include "common/trapped.h"

namespace depcalc {
namespace {

constexpr std::string_view overview =
    R"(  depcalc schedule assets.csv                 compare the methods for every asset
  depcalc schedule --format csv - < a.csv     the amounts, for another program
  depcalc new workshop.company                create a company file
  depcalc import workshop.company assets.csv  add the assets of a CSV file
  depcalc list workshop.company               list its assets
  depcalc register workshop.company           the amounts of all assets, year by year
  depcalc help schedule                       more examples, for each command
)";

/// Help that begins with what people look for.
class ExamplesFirst : public CLI::Formatter {
 public:
  explicit ExamplesFirst(std::string_view examples) : examples_(examples) { column_width(30); }

  std::string make_description(const CLI::App* app) const override {
    return "Examples:\n" + examples_ + "\n" + CLI::Formatter::make_description(app);
  }

 private:
  std::string examples_;
};

void declareCommands(CLI::App& app, const std::vector<std::unique_ptr<Command>>& commands) {
  app.formatter(std::make_shared<ExamplesFirst>(overview));
  app.set_help_flag("--help,-h", "Print this help and exit");
  app.set_version_flag("--version", "depcalc " DEPCALC_VERSION, "Print the version and exit");
  app.require_subcommand(1);
  for (const auto& command : commands) {
    CLI::App* sub =
        app.add_subcommand(std::string(command->name()), std::string(command->summary()));
    sub->formatter(std::make_shared<ExamplesFirst>(command->examples()));
    Arguments arguments(*sub);
    command->declare(arguments);
  }
}

/// Behind the first line of `message`, what an option that there is not may have meant.
std::string withSuggestion(const CLI::App& app, const CLI::ParseError& error, std::string message) {
  const auto chosen = app.get_subcommands();
  if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::ExtrasError) || chosen.empty())
    return message;
  const auto extra = app.remaining(true);
  if (extra.empty()) return message;
  return message.insert(std::min(message.find('\n'), message.size()),
                        meantOption(wordsOf(*chosen.front()), extra.front()));
}

/// Help and version go to the output; a usage error to the errors.
ExitStatus endedByParsing(const CLI::App& app, const CLI::ParseError& error, std::string_view word,
                          Surroundings& surroundings) {
  std::ostringstream out;
  std::ostringstream errors;
  const bool success = app.exit(error, out, errors) == 0;
  surroundings.out.write(out.str());
  if (success) return exit_success;
  surroundings.errors.write("depcalc: ");
  const bool unknown =
      error.get_name() == "RequiredError" && !word.empty() && app.get_subcommands().empty();
  surroundings.errors.write(unknown ? unknownCommand(commandsOf(app), word)
                                    : withSuggestion(app, error, errors.str()));
  return exit_usage;
}

/// A part that had no memory and was passed over leaves the rest in doubt, too.
template <typename Run>
ExitStatus runTrapped(Surroundings& surroundings, Run run) {
  const HeardReports heard;
  ExitStatus status = exit_system;
  const bool done = trapped("depcalc", [&] { status = run(); });
  if (done && !heard.ofMemory()) return status;
  const std::string_view known(heard.last());
  surroundings.errors.write(known.empty() ? "depcalc: Out of memory" : known);
  surroundings.errors.write('\n');
  return exit_system;
}

ExitStatus runParsed(CLI::App& app, const std::vector<std::unique_ptr<Command>>& commands,
                     Surroundings& surroundings) {
  for (const auto& command : commands) {
    if (app.got_subcommand(std::string(command->name()))) return command->run(surroundings);
  }
  return exit_usage;
}

ExitStatus runArguments(int argc, const char* const* argv, Surroundings& surroundings) {
  CLI::App app("Depreciation of fixed assets by four methods, side by side.", "depcalc");
  const auto commands = allCommands();
  declareCommands(app, commands);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return endedByParsing(app, error, argc > 1 ? argv[1] : "", surroundings);
  }
  return runParsed(app, commands, surroundings);
}

}  // namespace

std::vector<std::unique_ptr<Command>> allCommands() {
  std::vector<std::unique_ptr<Command>> commands;
  commands.push_back(scheduleCommand());
  commands.push_back(newCommand());
  commands.push_back(importCommand());
  commands.push_back(listCommand());
  commands.push_back(registerCommand());
  commands.push_back(printCommand());
  commands.push_back(reportCommand());
  commands.push_back(explainCommand());
  commands.push_back(recalculateCommand());
  commands.push_back(disposeCommand());
  commands.push_back(unitsCommand());
  commands.push_back(deleteCommand());
  commands.push_back(checkCommand());
  commands.push_back(dumpCommand());
  commands.push_back(copyCommand());
  commands.push_back(serverCommand());
  commands.push_back(helpCommand());
  commands.push_back(completionCommand());
  return commands;
}

int runCommandLine(int argc, const char* const* argv, Surroundings& surroundings) {
  ExitStatus status =
      runTrapped(surroundings, [&] { return runArguments(argc, argv, surroundings); });
  Output& out = surroundings.out;
  if (!out.finish()) {
    // Who has closed the pipe knows, as in `depcalc list FILE | head`.
    if (!out.unwanted()) {
      surroundings.errors.write("depcalc: standard output: " + out.failure() + '\n');
    }
    status = exit_system;
  }
  surroundings.errors.flush();
  return status;
}

}  // namespace depcalc
