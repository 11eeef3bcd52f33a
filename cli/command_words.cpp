#include "cli/command_words.h"

#include <CLI/CLI.hpp>

namespace depcalc {
namespace {

/// The names between the braces of "TEXT:{table,csv}".
std::vector<std::string> namesInBraces(const std::string& text) {
  const std::size_t open = text.find('{');
  const std::size_t close = text.find('}', open);
  if (open == std::string::npos || close == std::string::npos) return {};
  return CLI::detail::split(text.substr(open + 1, close - open - 1), ',');
}

OptionWords wordsOf(const CLI::Option& option) {
  OptionWords words;
  for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
  words.description = option.get_description();
  words.has_value = option.get_items_expected_max() > 0;
  words.values = namesInBraces(option.get_type_name());
  words.takes_file = option.get_option_text().rfind("FILE", 0) == 0;
  return words;
}

/// Not by way of `program.help()`, which is the help of the command that runs.
std::string formattedHelp(const CLI::App& app, const std::string& usage) {
  return app.get_formatter()->make_help(&app, usage, CLI::AppFormatMode::Normal);
}

}  // namespace

CommandWords wordsOf(const CLI::App& app) {
  CommandWords words{app.get_name(), app.get_description(), {}, {}};
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_positional()) {
      words.options.push_back(wordsOf(*option));
      continue;
    }
    const auto known = namesInBraces(option->get_type_name());
    words.arguments.insert(words.arguments.end(), known.begin(), known.end());
    const std::string name = option->get_name(true);
    if (name == "FILE" || name == "CSV") words.takes_files = true;
    if (name == "COMMAND") words.takes_command = true;
  }
  return words;
}

std::vector<CommandWords> commandsOf(const CLI::App& program) {
  std::vector<CommandWords> commands;
  for (const CLI::App* sub : program.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(wordsOf(*sub));
  }
  for (CommandWords& command : commands) {
    if (!command.takes_command) continue;
    for (const CommandWords& each : commands) command.arguments.push_back(each.name);
  }
  return commands;
}

std::optional<std::string> helpOf(const CLI::App& program, const std::string& command) {
  if (command.empty()) return formattedHelp(program, program.get_name());
  for (const CLI::App* sub : program.get_subcommands([](const CLI::App*) { return true; })) {
    if (sub->get_name() == command) return formattedHelp(*sub, program.get_name() + " " + command);
  }
  return std::nullopt;
}

}  // namespace depcalc
