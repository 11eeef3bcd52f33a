#include "cli/completions.h"

#include <CLI/CLI.hpp>
#include <vector>

namespace depcalc {
namespace {

/// What a shell has to know of an option.
struct OptionWords {
  std::vector<std::string> names;  ///< with their dashes
  std::string description;
  bool has_value = false;
  std::vector<std::string> values;  ///< where they are known
  bool takes_file = false;
};

/// What it has to know of a command.
struct CommandWords {
  std::string name;
  std::string summary;
  std::vector<OptionWords> options;
  std::vector<std::string> arguments;  ///< where they are known
  bool takes_files = false;
  bool takes_command = false;
};

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

std::vector<CommandWords> commandsOf(const CLI::App& root) {
  std::vector<CommandWords> commands;
  for (const CLI::App* sub : root.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(wordsOf(*sub));
  }
  for (CommandWords& command : commands) {
    if (!command.takes_command) continue;
    for (const CommandWords& each : commands) command.arguments.push_back(each.name);
  }
  return commands;
}

std::string joined(const std::vector<std::string>& words, const char* between) {
  return CLI::detail::join(words, between);
}

std::string allNames(const CommandWords& command) {
  std::vector<std::string> names;
  for (const OptionWords& option : command.options) {
    names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return joined(names, " ");
}

/// Between single quotes, as all three shells read it.
std::string inQuotes(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// --- bash ----------------------------------------------------------------------------------------

std::string bashCase(const CommandWords& command) {
  std::string text = "    " + (command.name == "depcalc" ? "''" : command.name) + ")\n";
  text += "      options='" + allNames(command) + "'\n";
  text += "      arguments='" + joined(command.arguments, " ") + "'\n";
  if (command.takes_files) text += "      files=yes\n";
  text += "      case $previous in\n";
  for (const OptionWords& option : command.options) {
    if (!option.has_value) continue;
    text += "        " + joined(option.names, "|") + ") values='" + joined(option.values, " ") +
            "' value=" + (option.takes_file ? "file" : "word") + " ;;\n";
  }
  return text + "      esac ;;\n";
}

std::string bashScript(const CLI::App& root, const std::vector<CommandWords>& commands) {
  CommandWords whole = wordsOf(root);
  for (const CommandWords& command : commands) whole.arguments.push_back(command.name);
  std::string text = R"(# bash completion for depcalc, as `depcalc completion bash` writes it
_depcalc() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} i
  local command='' options='' arguments='' values='' value='' files=''
  COMPREPLY=()
  # --format=csv comes as three words.
  [[ $previous == = ]] && previous=${COMP_WORDS[COMP_CWORD-2]}
  [[ $word == = ]] && word=''
  for ((i = 1; i < COMP_CWORD; i++)); do
    [[ ${COMP_WORDS[i]} == -* ]] || { command=${COMP_WORDS[i]}; break; }
  done
  case $command in
)" + bashCase(whole);
  for (const CommandWords& command : commands) text += bashCase(command);
  return text + R"(  esac
  if [[ $value == word ]]; then
    COMPREPLY=($(compgen -W "$values" -- "$word"))
  elif [[ $value != file && $word == -* ]]; then
    COMPREPLY=($(compgen -W "$options" -- "$word"))
  elif [[ $value == file || $files == yes ]]; then
    compopt -o filenames 2> /dev/null
    local IFS=$' \n'
    COMPREPLY=($(compgen -W "$arguments" -- "$word"))
    IFS=$'\n'
    COMPREPLY+=($(compgen -f -- "$word"))
  else
    COMPREPLY=($(compgen -W "$arguments" -- "$word"))
  fi
}
complete -F _depcalc depcalc
)";
}

// --- zsh -----------------------------------------------------------------------------------------

std::string withoutSpecial(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '[' || c == ']' || c == ':' || c == '\\') result += '\\';
    result += c;
  }
  return result;
}

std::string zshOption(const OptionWords& option, const std::string& name) {
  std::string spec = name + "[" + withoutSpecial(option.description) + "]";
  if (option.has_value) {
    spec += ":value:";
    if (option.takes_file) spec += "_files";
    if (!option.values.empty()) spec += "(" + joined(option.values, " ") + ")";
  }
  return inQuotes(spec);
}

std::string zshArguments(const CommandWords& command, const std::string& indent) {
  std::string text;
  for (const OptionWords& option : command.options) {
    for (const std::string& name : option.names) {
      text += " \\\n" + indent + zshOption(option, name);
    }
  }
  return text;
}

std::string zshScript(const CLI::App& root, const std::vector<CommandWords>& commands) {
  std::string text = R"(#compdef depcalc
# zsh completion for depcalc, as `depcalc completion zsh` writes it
local curcontext="$curcontext" state line
local -a commands
commands=(
)";
  for (const CommandWords& command : commands) {
    text += "  " + inQuotes(withoutSpecial(command.name) + ":" + command.summary) + "\n";
  }
  text += ")\n_arguments -C" + zshArguments(wordsOf(root), "  ") +
          R"( \
  '1:command:->command' '*::argument:->argument'
case $state in
  command) _describe command commands ;;
  argument)
    case $line[1] in
)";
  for (const CommandWords& command : commands) {
    text += "      " + command.name + ") _arguments" + zshArguments(command, "        ");
    // Words that stand before a file are the first argument.
    if (!command.arguments.empty()) {
      const std::string place = command.takes_files ? "1" : "*";
      text +=
          " \\\n        " + inQuotes(place + ":argument:(" + joined(command.arguments, " ") + ")");
    }
    if (command.takes_files) text += " \\\n        '*:file:_files'";
    text += " ;;\n";
  }
  return text + "    esac ;;\nesac\n";
}

// --- fish ----------------------------------------------------------------------------------------

std::string fishOption(const OptionWords& option, const std::string& condition) {
  std::string text = "complete -c depcalc -n " + condition;
  for (const std::string& name : option.names) {
    text += name.rfind("--", 0) == 0 ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  if (option.has_value) text += option.takes_file ? " -r -F" : " -x";
  if (!option.values.empty()) text += " -a " + inQuotes(joined(option.values, " "));
  return text + " -d " + inQuotes(option.description) + "\n";
}

std::string fishScript(const CLI::App& root, const std::vector<CommandWords>& commands) {
  std::string text =
      "# fish completion for depcalc, as `depcalc completion fish` writes it\n"
      "complete -c depcalc -f\n";
  for (const OptionWords& option : wordsOf(root).options) {
    text += fishOption(option, "__fish_use_subcommand");
  }
  for (const CommandWords& command : commands) {
    text += "complete -c depcalc -n __fish_use_subcommand -a " + command.name + " -d " +
            inQuotes(command.summary) + "\n";
    const std::string condition = inQuotes("__fish_seen_subcommand_from " + command.name);
    for (const OptionWords& option : command.options) text += fishOption(option, condition);
    if (command.takes_files) text += "complete -c depcalc -n " + condition + " -F\n";
    if (!command.arguments.empty()) {
      text += "complete -c depcalc -n " + condition + " -a " +
              inQuotes(joined(command.arguments, " ")) + "\n";
    }
  }
  return text;
}

}  // namespace

std::string completionsFor(const CLI::App& root, std::string_view shell) {
  const auto commands = commandsOf(root);
  if (shell == "zsh") return zshScript(root, commands);
  if (shell == "fish") return fishScript(root, commands);
  return bashScript(root, commands);
}

}  // namespace depcalc
