// Files that are no asset files, and what to say of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// The separator that an option's text means: "comma", "semicolon", "tab", or one character that
/// may stand between fields.
std::optional<char> separatorNamed(std::string_view text);

/// What to tell of a file that begins with `beginning`, where fields parted by `separator` are
/// expected: that it is a company file, or that another separator parts its columns. Empty where
/// neither shows.
std::string foreignFileMessage(std::string_view beginning, char separator);

}  // namespace depcalc
