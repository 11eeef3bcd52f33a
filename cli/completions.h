// Completions of the command line for shells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command_words.h"

namespace depcalc {

/// The script that a shell ("bash", "zsh" or "fish") reads to complete the `commands`, their
/// options and values, and before them the options of the `whole`.
std::string completionsFor(const CommandWords& whole, const std::vector<CommandWords>& commands,
                           std::string_view shell);

}  // namespace depcalc
