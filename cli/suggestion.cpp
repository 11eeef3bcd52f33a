#include "cli/suggestion.h"

#include <algorithm>
#include <iterator>

#include "values/printable_text.h"

namespace depcalc {
namespace {

/// Letters put in, left out, replaced or exchanged with their neighbour to make `b` of `a`.
std::size_t slipsBetween(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> slips(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        slips[i][j] = i + j;
        continue;
      }
      const std::size_t other = a[i - 1] == b[j - 1] ? 0 : 1;
      slips[i][j] =
          std::min({slips[i - 1][j] + 1, slips[i][j - 1] + 1, slips[i - 1][j - 1] + other});
      const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (exchanged) slips[i][j] = std::min(slips[i][j], slips[i - 2][j - 2] + 1);
    }
  }
  return slips[a.size()][b.size()];
}

}  // namespace

std::string closestTo(std::string_view word, const std::vector<std::string>& known) {
  constexpr std::size_t longest_word = 40;
  constexpr std::size_t most_slips = 2;
  if (word.size() > longest_word) return {};
  std::string best;
  std::size_t fewest = most_slips + 1;
  for (const std::string& each : known) {
    const std::size_t slips = slipsBetween(word, each);
    // A word of which nothing is left was not meant.
    if (slips >= fewest || slips >= each.size() / 2 + 1) continue;
    fewest = slips;
    best = each;
  }
  return best;
}

std::string unknownCommand(const std::vector<CommandWords>& commands, std::string_view word) {
  std::vector<std::string> names;
  names.reserve(commands.size());
  for (const CommandWords& command : commands) names.push_back(command.name);
  const std::string meant = closestTo(word, names);
  return "Unknown command " + quotedText(word) + "." +
         (meant.empty() ? "" : " Did you mean " + meant + "?") +
         "\nRun with --help for more information.\n";
}

std::string meantOption(const CommandWords& command, std::string_view word) {
  std::vector<std::string> names;
  for (const OptionWords& option : command.options) {
    std::copy_if(option.names.begin(), option.names.end(), std::back_inserter(names),
                 [](const std::string& name) { return name.rfind("--", 0) == 0; });
  }
  const std::string meant = closestTo(word.substr(0, word.find('=')), names);
  return meant.empty() ? "" : ". Did you mean " + meant + "?";
}

}  // namespace depcalc
