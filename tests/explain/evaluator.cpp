#include "tests/explain/evaluator.h"

#include <charconv>
#include <cmath>

namespace depcalc {
namespace {

/// A descent by the grammar. It knows nothing of the engine: doubles, and nearbyint to round.
class Evaluator {
 public:
  explicit Evaluator(std::string_view text) : rest_(text) {}

  std::optional<double> whole() {
    const double value = sum();
    return wrong_ || !rest_.empty() ? std::nullopt : std::optional(value);
  }

 private:
  double sum() {
    double value = product();
    while (!wrong_ && !rest_.empty()) {
      if (took(" + ")) {
        value = value + product();
      } else if (took(" - ")) {
        value = value - product();
      } else {
        break;
      }
    }
    return value;
  }

  double product() {
    double value = atom();
    while (!wrong_ && !rest_.empty()) {
      if (took(" * ")) {
        value = value * atom();
      } else if (took(" / ")) {
        value = value / atom();
      } else {
        break;
      }
    }
    return value;
  }

  double atom() {
    if (took("round2(")) return std::nearbyint(closed() * 100.0) / 100.0;
    if (took("currency(")) return std::nearbyint(closed() * 10'000.0) / 10'000.0;
    if (took("(")) return closed();
    return number();
  }

  double closed() {
    const double value = sum();
    if (!took(")")) wrong_ = true;
    return value;
  }

  /// Digits with a point, nothing else.
  double number() {
    double value = 0;
    const std::size_t length = std::min(rest_.find_first_not_of("0123456789."), rest_.size());
    const auto read = std::from_chars(rest_.data(), rest_.data() + length, value);
    if (length == 0 || read.ec != std::errc() || read.ptr != rest_.data() + length) wrong_ = true;
    rest_.remove_prefix(length);
    return value;
  }

  bool took(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }

  std::string_view rest_;
  bool wrong_ = false;
};

}  // namespace

std::optional<double> evaluated(std::string_view expression) {
  return Evaluator(expression).whole();
}

}  // namespace depcalc
