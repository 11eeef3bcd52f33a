// The texts that stand in a metafile.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace depcalc::testing {

/// In the order in which they were written.
[[nodiscard]] std::vector<std::string> textsIn(HENHMETAFILE file);

}  // namespace depcalc::testing
