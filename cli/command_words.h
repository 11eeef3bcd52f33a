// What the commands have declared, for whoever tells of it: help, completions, suggestions.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace depcalc {

struct OptionWords {
  std::vector<std::string> names;  ///< with their dashes
  std::string description;
  bool has_value = false;
  std::vector<std::string> values;  ///< where they are known
  bool takes_file = false;
};

struct CommandWords {
  std::string name;
  std::string summary;
  std::vector<OptionWords> options;
  std::vector<std::string> arguments;  ///< where they are known
  bool takes_files = false;
  bool takes_command = false;
};

/// Of a command, or of the whole `app` as far as it is none.
CommandWords wordsOf(const CLI::App& app);

/// Of every command of `program`, in the order of the help.
std::vector<CommandWords> commandsOf(const CLI::App& program);

/// The help of the command of that name, of all where it is ""; nullopt where there is none.
std::optional<std::string> helpOf(const CLI::App& program, const std::string& command);

}  // namespace depcalc
