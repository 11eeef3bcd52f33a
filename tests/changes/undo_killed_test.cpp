// Processes killed in the middle of saving, undoing and doing again.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "tests/changes/undoable_company.h"
#include "tests/support/effort.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using namespace testing_support;

std::uint64_t stateOf(UndoableCompany& company) {
  return digestOfState(company.content(), followedTables());
}

/// Tells each state that the company has reached, until it is killed.
[[noreturn]] void work(const std::string& folder, unsigned seed, int told) {
  std::mt19937 random(seed);
  UndoableCompany company(folder);
  const auto tell = [&] {
    const std::uint64_t state = stateOf(company);
    if (::write(told, &state, sizeof state) != sizeof state) ::_exit(1);
  };
  tell();
  while (true) {
    switch (random() % 6) {
      case 0:
        company.saveNew("N", 3 + static_cast<int>(random() % 4), "SL");
        break;
      case 1:
        company.import(3, "I");
        break;
      case 2:
        if (company.count() > 0) company.remove(1);
        break;
      case 3:
        if (company.count() > 0) company.saveEdited(1, "E" + std::to_string(random() % 99), 700);
        break;
      case 4:
        company.recorder().undo();
        break;
      default:
        company.recorder().redo();
    }
    tell();
  }
}

/// The states that a process told before it was killed, `after` from its first one.
std::vector<std::uint64_t> statesUntilKilled(const std::string& folder, unsigned seed,
                                             std::chrono::microseconds after) {
  std::array<int, 2> pipe{};
  if (::pipe(pipe.data()) != 0) return {};
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipe[0]);
    work(folder, seed, pipe[1]);
  }
  ::close(pipe[1]);
  std::vector<std::uint64_t> states;
  std::uint64_t state = 0;
  if (::read(pipe[0], &state, sizeof state) == sizeof state) states.push_back(state);
  std::this_thread::sleep_for(after);
  ::kill(child, SIGKILL);
  while (::read(pipe[0], &state, sizeof state) == sizeof state) states.push_back(state);
  ::close(pipe[0]);
  ::waitpid(child, nullptr, 0);
  return states;
}

bool isOneOf(const std::vector<std::uint64_t>& states, std::uint64_t state) {
  return std::find(states.begin(), states.end(), state) != states.end();
}

TEST(UndoKilled, LeavesTheCompanyBeforeOrAfterAStepAndItsHistoryWithIt) {
  const int rounds = Effort{.usual = 60, .in_long_run = 1'000}.times();
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  TemporaryDirectory directory;
  std::vector<std::uint64_t> known;  ///< every state that the company ever had
  for (int round = 0; round < rounds; ++round) {
    const auto told = statesUntilKilled(directory.path(), static_cast<unsigned>(random()),
                                        std::chrono::microseconds(random() % 20'000));
    ASSERT_FALSE(told.empty());
    known.insert(known.end(), told.begin(), told.end());
    UndoableCompany company(directory.path());
    const History& history = company.recorder().history();
    const std::uint64_t now = stateOf(company);
    // What was acknowledged is there; what was under way may be, as a step or as one taken back.
    if (now != told.back()) {
      const std::size_t at = history.position();
      ASSERT_FALSE(history.steps().empty());
      const bool just_done = at > 0 && history.stateAt(at - 1) == told.back();
      const bool just_undone =
          at < history.steps().size() && history.stateAt(at + 1) == told.back();
      ASSERT_TRUE(just_done || just_undone);
      known.push_back(now);
    }
    if (known.size() > 5) {
      ASSERT_EQ(company.recorder().found(), StepLog::Found::steps);
    }
    // What is offered leads to where the company was.
    for (int steps = 0; steps < 5 && company.recorder().canUndo(); ++steps) {
      company.recorder().undo();
      ASSERT_TRUE(isOneOf(known, stateOf(company)));
    }
    while (random() % 3 > 0 && company.recorder().canRedo()) {
      company.recorder().redo();
      ASSERT_TRUE(isOneOf(known, stateOf(company)));
    }
  }
  std::printf("seed %u: %zu states\n", seed, known.size());
}

}  // namespace
}  // namespace depcalc
