// What a command asks for on the command line. Who declares and reads it knows no parser.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace depcalc {

/// Where a value goes: into a variable, an int where it must be a whole number, or to a reader of
/// the text. What was not given stays as it is.
using Destination = std::variant<std::reference_wrapper<std::string>, std::reference_wrapper<int>,
                                 std::reference_wrapper<std::optional<std::string>>,
                                 std::reference_wrapper<std::optional<int>>,
                                 std::function<void(const std::string&)>>;

/// Why a text will not do as a value; "" where it will.
using ValueCheck = std::function<std::string(const std::string&)>;

enum class LetterCase : std::uint8_t { counts, ignored };

/// Whether limits are also told to somebody who has forgotten the value.
enum class ToldLimits : std::uint8_t { always, only_when_passed };

/// One of the arguments, options and flags, and what goes for it.
class Argument {
 public:
  explicit Argument(CLI::Option& option) : option_(&option) {}

  Argument& required();
  /// Completions offer the names in `offered`.
  Argument& check(const ValueCheck& complaint, const std::vector<std::string>& offered = {});
  /// With the case ignored the value is the name as it stands in `names`.
  Argument& oneOf(const std::vector<std::string>& names, LetterCase letters = LetterCase::counts);
  Argument& range(int lowest, int highest, ToldLimits limits = ToldLimits::always);
  Argument& needs(const Argument& other);
  Argument& excludes(const Argument& other);

 private:
  CLI::Option* option_;
};

/// What is wrong with an option beside the others.
struct Misuse {
  std::string option;
  std::string why;
};

/// All that one command asks for. A copy declares for the same command.
class Arguments {
 public:
  explicit Arguments(CLI::App& command) : command_(&command) {}

  /// A value that stands by itself. Completions offer files for FILE and CSV, commands for COMMAND.
  Argument positional(const std::string& name, const Destination& destination,
                      const std::string& description);
  /// `form` is "--name VALUE". Completions offer files where VALUE begins with FILE.
  Argument option(const std::string& form, const Destination& destination,
                  const std::string& description);
  Argument flag(const std::string& name, bool& on, const std::string& description);

  /// Lines for the end of --help.
  void footer(const std::string& text);
  /// Asks `misuse` once everything has its value; what it answers is a usage error.
  void refuse(const std::function<std::optional<Misuse>(const Arguments& given)>& misuse);

  /// Whether the option `name` is on the command line.
  [[nodiscard]] bool has(const std::string& name) const;
  /// The whole command line, for who tells of it (cli/command_words.h).
  [[nodiscard]] const CLI::App& program() const;

 private:
  CLI::App* command_;
};

}  // namespace depcalc
