// depcalc killed at random moments: the company file opens, holds the state before or after, and
// what was acknowledged is there.
#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <thread>

#include "DepCalc/units_store.h"
#include "tests/cli/program.h"
#include "tests/support/effort.h"

namespace depcalc {
namespace {

using namespace testing_support;

class Crash : public Program {
 protected:
  void SetUp() override {
    writeAssets(many_, 250);
    writeAssets(one_, 1);
    make(base_, 250);
    UnitsStore units(opened(base_));
    for (int n = 1; n <= 250; n += 2) units.put(n, {{2024, 5.0 * n}});
  }

  void restore() const {
    std::filesystem::remove(file_ + "-journal");
    std::filesystem::copy_file(base_, file_, std::filesystem::copy_options::overwrite_existing);
  }
};

TEST_F(Crash, LeavesTheStateBeforeOrAfterAndLosesNothingAcknowledged) {
  const int kills = Effort{.usual = 75, .in_long_run = 250}.times();
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const TableContent before = contentAt(base_);
  const std::vector<Arguments> commands{{"import", "--allow-duplicates", file_, many_},
                                        {"import", "--allow-duplicates", file_, one_},
                                        {"dispose", file_, "2", "--date", "2024-05-31"},
                                        {"units", file_, "3", "--clear"},
                                        {"delete", file_, "1"}};
  int cut_short = 0;
  for (Arguments command : commands) {
    command.insert(command.end(), {"--today", "2024-06-01"});
    restore();
    const auto began = Clock::now();
    ASSERT_TRUE(succeeded(start(command)));
    std::chrono::duration<double> whole = Clock::now() - began;
    const TableContent after = contentAt(file_);
    ASSERT_FALSE(before == after);

    for (int i = 0; i < kills / 5; ++i) {
      restore();
      const double share = std::uniform_real_distribution<double>(0, 1.1)(random);
      const pid_t child = start(command);
      std::this_thread::sleep_for(whole * share);
      ::kill(child, SIGKILL);
      const bool acknowledged = succeeded(child);
      cut_short += acknowledged ? 0 : 1;
      whole *= acknowledged ? 0.7 : 1.08;  // the machine is faster one moment, slower the next
      const TableContent kept = contentAt(file_);  // the lock is gone at once
      EXPECT_TRUE(kept == after || (!acknowledged && kept == before))
          << command.front() << ", seed " << seed << ", kill " << i
          << (acknowledged ? ", acknowledged" : "");
      ASSERT_FALSE(HasFailure());
    }
  }
  EXPECT_GT(cut_short, kills / 4) << "the kills came in time";
}

/// A row of saves, each acknowledged before the next one begins, all killed at one moment.
TEST_F(Crash, KeepsEverySaveOfARowThatWasAcknowledged) {
  const int kills = Effort{.usual = 6, .in_long_run = 40}.times();
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  int saves = 0;
  for (int i = 0; i < kills; ++i) {
    restore();
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t row = ::fork();
    if (row == 0) {
      ::setpgid(0, 0);
      while (succeeded(
          start({"import", "--allow-duplicates", file_, one_, "--today", "2024-06-01"}))) {
        if (::write(ends[1], "s", 1) != 1) ::_exit(1);
      }
      ::_exit(1);
    }
    ::setpgid(row, row);
    ::close(ends[1]);
    int acknowledged = 0;
    char save = 0;
    if (::read(ends[0], &save, 1) == 1) ++acknowledged;
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % 300));
    ::kill(-row, SIGKILL);
    EXPECT_EQ(statusOf(row), -1) << "no save failed by itself";
    // The end of the pipe: every process of the row is gone.
    while (::read(ends[0], &save, 1) == 1) ++acknowledged;
    ::close(ends[0]);
    const int kept = static_cast<int>(contentAt(file_).size() - contentAt(base_).size());
    EXPECT_GE(kept, acknowledged) << "seed " << seed;
    EXPECT_LE(kept, acknowledged + 1) << "seed " << seed;
    saves += acknowledged;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GE(saves, kills);
}

}  // namespace
}  // namespace depcalc
