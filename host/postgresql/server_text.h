// Records as texts that a server can keep and show.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// A record's text (host/stored/record_text.h) in valid UTF-8: a byte that belongs to no character
/// becomes the escape \udcXX, which such a text never has otherwise.
std::string serverText(std::string_view text);
/// The text that `serverText` was made of.
std::string textOfServer(std::string_view text);
/// What SQL is shown in its place, where it cannot read the text: U+FFFD for each such byte and for
/// NUL. Nothing where it can.
std::optional<std::string> readableText(std::string_view server_text);

}  // namespace depcalc
