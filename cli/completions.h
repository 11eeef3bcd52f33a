// Completions of the command line for shells.
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace depcalc {

/// The script that a shell ("bash", "zsh" or "fish") reads to complete the commands, options and
/// values that `root` declares.
std::string completionsFor(const CLI::App& root, std::string_view shell);

}  // namespace depcalc
