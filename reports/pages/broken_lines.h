// Texts in columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reports/pages/paper.h"

namespace depcalc {

/// The lines of `text`, none wider than `width` (twips): broken at its line ends, then behind
/// blanks, hyphens and slashes, and within a word only where it is wider than a whole line. Blanks
/// where a line is broken are dropped and control characters written out; all else is there. At
/// least one line, and at least one character in each but an empty one.
std::vector<std::string> brokenLines(std::string_view text, double width, PaperFont font,
                                     const PaperMeasures& measures);

/// The width of the widest part that is not broken.
double widestWord(std::string_view text, PaperFont font, const PaperMeasures& measures);

/// The beginning of `text` with "…" in the place of what has no room.
std::string shortened(std::string_view text, double width, PaperFont font,
                      const PaperMeasures& measures);

}  // namespace depcalc
