// Texts as data files write them.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// As a field of a CSV row: between quotes where it holds a comma, a quote or a line end.
std::string csvField(std::string_view text);

}  // namespace depcalc
