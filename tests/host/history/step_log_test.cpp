// The history file: what it says after it was written, cut off, damaged or not to be written.
#include "host/history/step_log.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing_support::TemporaryDirectory;
using Found = StepLog::Found;

Step step(std::uint64_t before, std::uint64_t after, const std::string& changes = "changes") {
  return {{StepKind::saved, "TRK-014", 1}, 1'700'000'000, before, after, changes};
}

class StepLogs : public testing::Test {
 protected:
  /// Done and accepted.
  void doStep(StepLog& log, History& history, const Step& done) {
    log.announce(history, done);
    history.add(done);
  }
  /// What a new start finds.
  Found found(std::uint64_t state) {
    StepLog log(path_);
    history_ = History();
    return log.read(state, history_);
  }
  std::string bytes() const {
    std::ifstream in(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void put(const std::string& bytes) const {
    std::ofstream(path_, std::ios::binary | std::ios::trunc) << bytes;
  }

  TemporaryDirectory directory_;
  std::string path_ = directory_.path() + "/company-0123/undo.history";
  History history_;
};

TEST_F(StepLogs, KnowTheStepsOfTheStateThatTheCompanyIsIn) {
  StepLog log(path_);
  History history;
  EXPECT_EQ(log.read(1, history), Found::nothing);
  doStep(log, history, step(1, 2));
  doStep(log, history, step(2, 3));
  EXPECT_TRUE(log.isKept());

  EXPECT_EQ(found(3), Found::steps);
  EXPECT_EQ(history_.steps(), history.steps());
  EXPECT_EQ(history_.position(), 2U);

  // The second did not come about.
  EXPECT_EQ(found(2), Found::steps);
  EXPECT_EQ(history_.steps().size(), 1U);

  EXPECT_EQ(found(1), Found::other);
  EXPECT_EQ(found(4), Found::other);
  EXPECT_TRUE(history_.steps().empty());
}

TEST_F(StepLogs, KnowWhatWasUndoneAndDoneAgain) {
  StepLog log(path_);
  History history;
  for (std::uint64_t i = 1; i <= 4; ++i) doStep(log, history, step(i, i + 1));
  for (const std::size_t position : {3U, 2U, 3U, 2U, 1U}) {
    log.announceMove(history, position);
    history.moveTo(position);
  }
  EXPECT_EQ(found(2), Found::steps);
  EXPECT_EQ(history_.position(), 1U);
  EXPECT_EQ(history_.steps().size(), 4U);
  // The last move did not come about.
  EXPECT_EQ(found(3), Found::steps);
  EXPECT_EQ(history_.position(), 2U);

  doStep(log, history, step(2, 9));
  EXPECT_EQ(found(9), Found::steps);
  EXPECT_EQ(history_.steps().size(), 2U);
  // Nothing could be done again where the new step had not come about.
  EXPECT_EQ(found(2), Found::steps);
  EXPECT_EQ(history_.steps().size(), 4U);
}

TEST_F(StepLogs, CutOffAnywhereLeadToTheStateBeforeOrToNone) {
  StepLog log(path_);
  History history;
  std::vector<std::uint64_t> ends;
  for (std::uint64_t i = 1; i <= 5; ++i) {
    doStep(log, history, step(i, i + 1));
    ends.push_back(bytes().size());
  }
  const std::string whole = bytes();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    put(whole.substr(0, size));
    std::uint64_t complete = 0;
    while (ends[complete] <= size) ++complete;
    for (std::uint64_t state = 1; state <= 6; ++state) {
      if (found(state) != Found::steps) {
        EXPECT_TRUE(history_.steps().empty());
        continue;
      }
      ASSERT_EQ(history_.steps().empty() ? state : history_.steps().back().after, state);
      EXPECT_LE(history_.steps().size(), complete);
    }
    if (complete > 0) {
      EXPECT_EQ(found(complete + 1), Found::steps) << size;
    }
  }
}

TEST_F(StepLogs, WithAByteChangedOfferNothingWrong) {
  StepLog log(path_);
  History history;
  for (std::uint64_t i = 1; i <= 3; ++i) doStep(log, history, step(i, i + 1));
  log.announceMove(history, 2);
  history.moveTo(2);
  const std::string whole = bytes();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const int bit : {0, 3, 7}) {
      std::string changed = whole;
      changed[at] = static_cast<char>(changed[at] ^ (1 << bit));
      put(changed);
      for (const std::uint64_t state : {1U, 2U, 3U, 4U}) {
        if (found(state) != Found::steps || history_.steps().empty()) continue;
        ASSERT_EQ(history_.stateAt(history_.position()), state) << at;
        for (std::size_t i = 0; i < history_.steps().size(); ++i) {
          ASSERT_EQ(history_.steps()[i], step(i + 1, i + 2)) << at;
        }
      }
    }
  }
}

TEST_F(StepLogs, GoOnBehindWhatWasCutOff) {
  StepLog log(path_);
  History history;
  doStep(log, history, step(1, 2));
  put(bytes() + "cut off");
  StepLog next(path_);
  History again;
  ASSERT_EQ(next.read(2, again), Found::steps);
  doStep(next, again, step(2, 3));
  EXPECT_TRUE(next.isKept());
  EXPECT_EQ(found(3), Found::steps);
  EXPECT_EQ(history_.steps().size(), 2U);
}

TEST_F(StepLogs, AreWrittenAnewWhereTheyWereOfAnotherState) {
  StepLog log(path_);
  History history;
  doStep(log, history, step(1, 2));
  StepLog next(path_);
  History none;
  ASSERT_EQ(next.read(7, none), Found::other);
  // Nothing is lost before something new is done.
  EXPECT_EQ(found(2), Found::steps);
  doStep(next, none, step(7, 8));
  EXPECT_EQ(found(8), Found::steps);
  EXPECT_EQ(history_.steps().size(), 1U);
  EXPECT_EQ(found(2), Found::other);
}

TEST_F(StepLogs, OfAnotherKindAreLeftAlone) {
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path());
  for (const std::string& other : {std::string("SQLite format 3\0", 16), std::string(),
                                   std::string("depcalc undo history 2\n"), std::string(99, 'x')}) {
    put(other);
    EXPECT_EQ(found(1), Found::damaged);
    EXPECT_EQ(bytes(), other);
  }
}

TEST_F(StepLogs, ThatCannotBeWrittenSaySoAndRecover) {
  StepLog log(path_);
  History history;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path());
  // A directory in its place: nobody can write there, not even root.
  std::filesystem::create_directory(path_);
  std::filesystem::create_directory(path_ + "/in the way");
  doStep(log, history, step(1, 2));
  EXPECT_FALSE(log.isKept());
  doStep(log, history, step(2, 3));
  EXPECT_FALSE(log.isKept());
  std::filesystem::remove_all(path_);
  doStep(log, history, step(3, 4));
  EXPECT_TRUE(log.isKept());
  EXPECT_EQ(found(4), Found::steps);
  EXPECT_EQ(history_.steps(), history.steps());
}

TEST_F(StepLogs, TakenAwayInBetweenAreWrittenAnew) {
  StepLog log(path_);
  History history;
  doStep(log, history, step(1, 2));
  std::filesystem::remove(path_);
  doStep(log, history, step(2, 3));
  EXPECT_EQ(found(3), Found::steps);
  EXPECT_EQ(history_.steps().size(), 2U);
}

TEST_F(StepLogs, KeepTheLastStepsWithinTheirBounds) {
  StepLog log(path_);
  History history;
  const std::string large(History::most_bytes / 8, 'x');
  for (std::uint64_t i = 1; i <= 300; ++i) {
    doStep(log, history, step(i, i + 1, i % 60 == 0 ? large : "small"));
    ASSERT_LE(std::filesystem::file_size(path_), 3 * History::most_bytes);
  }
  EXPECT_EQ(history.steps().size(), History::most_steps);
  log.announceMove(history, 150);
  history.moveTo(150);
  const std::uint64_t state = history.stateAt(150);
  EXPECT_EQ(found(state), Found::steps);
  EXPECT_EQ(history_.stateAt(history_.position()), state);
  EXPECT_EQ(history_.steps().back().after, 301U);

  const std::string too_large(History::most_bytes + 1, 'x');
  doStep(log, history, step(state, 999, too_large));
  EXPECT_EQ(history.steps().size(), 1U);
  EXPECT_EQ(found(999), Found::steps);
  EXPECT_EQ(history_.steps().size(), 1U);
}

TEST_F(StepLogs, AreForTheirUserAlone) {
  StepLog log(path_);
  History history;
  doStep(log, history, step(1, 2));
  struct stat status {};
  ASSERT_EQ(::stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(StepLogs, GoWithTheCompanyToAnotherPlace) {
  StepLog log(path_);
  History history;
  doStep(log, history, step(1, 2));
  path_ = directory_.path() + "/copy-4567/undo.history";
  log.moveTo(history, path_);
  EXPECT_EQ(found(2), Found::steps);
  doStep(log, history, step(2, 3));
  EXPECT_EQ(found(3), Found::steps);
  EXPECT_EQ(history_.steps().size(), 2U);
}

}  // namespace
}  // namespace depcalc
