// Random registers, as odd as records allow.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine/method_results.h"
#include "reports/register.h"

namespace depcalc::testing_support {

class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}
  int below(int n) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(n)); }
  int from(int first, int last) { return first + below(last - first + 1); }
  bool oneIn(int n) { return below(n) == 0; }
  template <typename T, std::size_t N>
  T of(const std::array<T, N>& values) {
    return values[static_cast<std::size_t>(below(static_cast<int>(N)))];
  }

 private:
  std::mt19937_64 engine_;
};

/// What is calculated today for the saved values, by the record itself.
MethodResults calculatedFor(const SavedAsset& asset);

/// A register of up to nine assets, some of which were saved with other amounts than a calculation
/// gives; `saved` has them with all their amounts, those that do not count among them.
RegisterOfAssets someRegister(Random& random, std::vector<SavedAsset>& saved);

}  // namespace depcalc::testing_support
