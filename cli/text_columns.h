// Texts in columns of equal width, for people.
#pragma once

#include <string>

#include "values/text.h"

namespace depcalc {

/// Blanks behind, up to `width` characters.
inline std::string padded(std::string text, std::size_t width) {
  const std::size_t length = characterCount(text);
  return text.append(width > length ? width - length : 0, ' ');
}

/// Blanks before, up to `width` characters.
inline std::string rightAligned(const std::string& text, std::size_t width) {
  const std::size_t length = characterCount(text);
  return std::string(width > length ? width - length : 0, ' ') + text;
}

}  // namespace depcalc
