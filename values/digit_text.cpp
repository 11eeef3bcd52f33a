#include "values/digit_text.h"

namespace depcalc {

char* writeLongWhole(char* out, std::uint64_t number) {
  constexpr std::uint64_t beyond_eight = 100'000'000;
  out = writeWhole(out, number / beyond_eight);
  return writeDigits(out, eightDigits(static_cast<std::uint32_t>(number % beyond_eight)), 0);
}

}  // namespace depcalc
