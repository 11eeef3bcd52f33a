#include "host/stored/digest.h"

#include <xxhash.h>

namespace depcalc {

std::uint64_t digestOf(std::string_view bytes, std::uint64_t seed) {
  return XXH64(bytes.data(), bytes.size(), seed);
}

}  // namespace depcalc
