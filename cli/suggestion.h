// What somebody may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command_words.h"

namespace depcalc {

/// The one of `known` that differs least from `word`; "" where none is close. Two letters that
/// changed places count as one slip.
std::string closestTo(std::string_view word, const std::vector<std::string>& known);

/// What to say of a command that is none of the `commands`, in lines.
std::string unknownCommand(const std::vector<CommandWords>& commands, std::string_view word);

/// ". Did you mean …?" where `word` comes close to an option of `command`, else nothing.
std::string meantOption(const CommandWords& command, std::string_view word);

}  // namespace depcalc
