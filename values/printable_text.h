// Texts from files, made safe to show on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// `text` with its control characters written out: \n, \t, \x1B. Nothing in a file can move the
/// cursor or change colours.
std::string printableText(std::string_view text);

/// The same between quotes, its own quotes and backslashes marked, and cut behind 60 characters.
std::string quotedText(std::string_view text);

}  // namespace depcalc
