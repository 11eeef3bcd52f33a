// How much memory the program holds. Linking this replaces operator new and delete.
#pragma once

#include <cstddef>

namespace depcalc::testing {

/// Bytes handed out by operator new and not given back.
std::size_t liveBytes();

}  // namespace depcalc::testing
