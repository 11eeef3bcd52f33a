// The digest that tells whether stored text is what was written.
#pragma once

#include <cstdint>
#include <string_view>

namespace depcalc {

/// XXH64 (Yann Collet's xxHash, 64 bits) of `bytes`. Every flipped bit changes it. It guards
/// against damage, not against forgery.
std::uint64_t digestOf(std::string_view bytes, std::uint64_t seed);

}  // namespace depcalc
