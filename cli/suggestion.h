// What somebody may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace depcalc {

/// The one of `known` that differs least from `word`; "" where none is close. Two letters that
/// changed places count as one slip.
std::string closestTo(std::string_view word, const std::vector<std::string>& known);

/// What to say of a command that there is not, in lines.
std::string unknownCommand(const CLI::App& root, std::string_view word);

/// ". Did you mean …?" where `word` comes close to an option of `app`, else nothing.
std::string meantOption(const CLI::App& app, std::string_view word);

}  // namespace depcalc
