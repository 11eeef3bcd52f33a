#include "cli/completions.h"

namespace depcalc {
namespace {

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string result;
  for (const std::string& word : words) {
    if (&word != &words.front()) result += between;
    result += word;
  }
  return result;
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

std::string bashScript(CommandWords whole, const std::vector<CommandWords>& commands) {
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

std::string zshScript(const CommandWords& whole, const std::vector<CommandWords>& commands) {
  std::string text = R"(#compdef depcalc
# zsh completion for depcalc, as `depcalc completion zsh` writes it
local curcontext="$curcontext" state line
local -a commands
commands=(
)";
  for (const CommandWords& command : commands) {
    text += "  " + inQuotes(withoutSpecial(command.name) + ":" + command.summary) + "\n";
  }
  text += ")\n_arguments -C" + zshArguments(whole, "  ") +
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

std::string fishScript(const CommandWords& whole, const std::vector<CommandWords>& commands) {
  std::string text =
      "# fish completion for depcalc, as `depcalc completion fish` writes it\n"
      "complete -c depcalc -f\n";
  for (const OptionWords& option : whole.options) {
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

std::string completionsFor(const CommandWords& whole, const std::vector<CommandWords>& commands,
                           std::string_view shell) {
  if (shell == "zsh") return zshScript(whole, commands);
  if (shell == "fish") return fishScript(whole, commands);
  return bashScript(whole, commands);
}

}  // namespace depcalc
