#include <algorithm>

#include "desktop/workspace/asset_list.h"

namespace depcalc::desktop {
namespace {

constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// The digits at the front of `text`, without the zeros before them; takes both off.
std::string_view takeNumber(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

int sign(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

int numberOrder(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return sign(a.compare(b));
}

}  // namespace

int naturalOrder(std::string_view a, std::string_view b) {
  const std::string_view whole_a = a;
  const std::string_view whole_b = b;
  while (!a.empty() && !b.empty()) {
    if (isDigit(a.front()) && isDigit(b.front())) {
      const std::string_view number = takeNumber(a);
      if (const int order = numberOrder(number, takeNumber(b))) return order;
    } else if (a.front() != b.front()) {
      return static_cast<unsigned char>(a.front()) < static_cast<unsigned char>(b.front()) ? -1 : 1;
    } else {
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.empty() != b.empty()) return a.empty() ? -1 : 1;
  // "A1" and "A01" are not the same.
  return sign(whole_a.compare(whole_b));
}

}  // namespace depcalc::desktop
