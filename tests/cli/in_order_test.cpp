// Parts of several threads come out in the order of their blocks, whichever is ready first.
#include "cli/in_order.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <numeric>
#include <random>
#include <thread>

namespace depcalc {
namespace {

struct Numbers {
  Numbers() { ++made; }

  std::vector<int> held;
  static inline std::atomic<int> made = 0;
};

/// Blocks of three numbers each, handed in by threads that sleep now and then.
class Blocks {
 public:
  Blocks(std::size_t parts, int most)
      : parts_(parts, [this](Numbers& part) { return pass(part); }), most_(most) {
    Numbers::made = 0;
  }

  void runOn(int threads) {
    std::vector<std::jthread> running;
    for (int i = 0; i < threads; ++i) {
      running.emplace_back([this, seed = seed_ + static_cast<unsigned>(i)] { work(seed); });
    }
  }

  std::vector<int> passed;

 private:
  static constexpr int blocks = 2'000;

  bool pass(Numbers& part) {
    EXPECT_FALSE(passing_.exchange(true)) << "two threads pass on at once";
    passed.insert(passed.end(), part.held.begin(), part.held.end());
    part.held.clear();
    passing_ = false;
    return static_cast<int>(passed.size()) < most_;
  }

  void work(unsigned seed) {
    std::mt19937 random(seed);
    while (auto part = parts_.spare()) {
      const int number = taken_++;
      if (number >= blocks) return;
      for (int i = 0; i < 3; ++i) {
        part->held.push_back(3 * number + i);
        if (random() % 64 == 0)
          std::this_thread::sleep_for(std::chrono::microseconds(random() % 300));
        if (random() % 8 == 0 && !parts_.passSoFar(static_cast<std::size_t>(number), *part)) return;
      }
      if (!parts_.handIn(static_cast<std::size_t>(number), std::move(part))) return;
    }
  }

  InOrder<Numbers> parts_;
  int most_;
  unsigned seed_ = std::random_device()();
  std::atomic<int> taken_ = 0;
  std::atomic<bool> passing_ = false;
};

TEST(InOrder, PassesEverythingOnOnceAndInOrder) {
  for (const int threads : {1, 2, 5}) {
    const auto parts = static_cast<std::size_t>(threads) + 3;
    Blocks blocks(parts, 100'000);
    blocks.runOn(threads);
    std::vector<int> all(6'000);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(blocks.passed, all) << threads << " threads";
    EXPECT_LE(Numbers::made, static_cast<int>(parts));
  }
}

TEST(InOrder, EndsEveryThreadWhenNobodyWantsMore) {
  Blocks blocks(6, 100);
  blocks.runOn(4);
  ASSERT_GE(blocks.passed.size(), 100U);
  EXPECT_LT(blocks.passed.size(), 103U);
  for (std::size_t i = 0; i < blocks.passed.size(); ++i)
    ASSERT_EQ(blocks.passed[i], static_cast<int>(i));
}

}  // namespace
}  // namespace depcalc
