// Small rules about texts. Texts are UTF-8 throughout; a "character" is a code point.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// Number of characters. A byte that belongs to no well-formed sequence counts as one.
std::size_t characterCount(std::string_view text);

/// The first `count` characters (all of them when there are fewer), and what follows them.
std::string_view firstCharacters(std::string_view text, std::size_t count);
std::string_view afterCharacters(std::string_view text, std::size_t count);

/// Equal but for the case of the letters A to Z.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Without the blanks and tabs at either end.
std::string_view trimmed(std::string_view text);

std::string toLower(std::string_view text);

/// With blanks behind, up to `width` characters.
std::string padded(std::string text, std::size_t width);

/// With blanks before, up to `width` characters.
std::string rightAligned(const std::string& text, std::size_t width);

}  // namespace depcalc
