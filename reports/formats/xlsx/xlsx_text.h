// Texts as cells of a workbook hold them.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// `text` as a workbook's XML can hold it: bytes and characters that XML does not have become
/// U+FFFD, and what would be read as an escaped character ("_x0041_") is escaped itself.
std::string xlsxText(std::string_view text);

}  // namespace depcalc
