#include "common/error_report.h"

#include <algorithm>
#include <iterator>

namespace depcalc {

bool ErrorReport::isOfValues() const noexcept {
  constexpr int numbers[] = {5, 6, 9, 11, 13};
  return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

bool ErrorReport::isOfMemory() const noexcept { return number == 7; }

std::string ErrorReport::text() const {
  std::string text(procedure);
  text.append(" Error#").append(std::to_string(number));
  return text.append(": ").append(description);
}

}  // namespace depcalc
