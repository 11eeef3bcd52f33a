// What a terminal shows of a long job, by a clock of the test's own.
#include "cli/progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using namespace std::chrono_literals;
using testing_support::TemporaryDirectory;

class OnATerminal : public testing::Test {
 protected:
  OnATerminal() { EXPECT_EQ(::openpty(&terminal_, &end_, nullptr, nullptr, nullptr), 0); }
  ~OnATerminal() override {
    ::close(terminal_);
    ::close(end_);
  }

  /// What has come up since the last time. A terminal passes on what is written when it pleases, so
  /// a mark behind it is waited for.
  std::string shown() const {
    EXPECT_EQ(::write(end_, "$", 1), 1);
    std::string text;
    for (char c = 0; ::read(terminal_, &c, 1) == 1 && c != '$';) text += c;
    return text;
  }

  int terminal_ = -1;
  int end_ = -1;
  std::chrono::steady_clock::time_point time_;
};

TEST_F(OnATerminal, ProgressIsShownAfterASecondTenTimesASecondAtMostAndWipedAway) {
  Output errors(end_);
  {
    Progress progress(errors, "Saving assets", 500, [this] { return time_; });
    time_ += 999ms;
    progress.reached(1);
    EXPECT_EQ(shown(), "");
    time_ += 1ms;
    progress.reached(2);
    EXPECT_EQ(shown(), "\rSaving assets: 2 of 500");
    time_ += 99ms;
    progress.reached(3);
    EXPECT_EQ(shown(), "");
    time_ += 1ms;
    progress.reached(4);
    EXPECT_EQ(shown(), "\rSaving assets: 4 of 500");
  }
  EXPECT_EQ(shown(), "\r\x1B[K");
}

TEST_F(OnATerminal, ProgressOfAShortJobIsNotShown) {
  Output errors(end_);
  {
    Progress(errors, "Saving assets", 2, [this] { return time_; }).reached(2);
  }
  EXPECT_EQ(shown(), "");
}

class ImportOnATerminal : public OnATerminal {
 protected:
  /// Runs `depcalc` where each look at the clock is so much later than the one before.
  void run(std::vector<const char*> arguments, std::chrono::milliseconds step) {
    arguments.insert(arguments.begin(), "depcalc");
    Output out(::dup(end_));
    Output errors(::dup(end_));
    Surroundings surroundings{out, errors, Date::strict(2024, 6, 1), [&] { return time_ += step; }};
    const int words = static_cast<int>(arguments.size());
    ASSERT_EQ(runCommandLine(words, arguments.data(), surroundings), 0);
    errors.finish();
  }

  TemporaryDirectory directory_;
  std::string company_ = directory_.path() + "/acme.company";
  std::string assets_ = directory_.path() + "/assets.csv";
};

TEST_F(ImportOnATerminal, SaysHowManyAssetsAreSaved) {
  std::ofstream(assets_) << "id,placed_in_service,life,basis\n"
                            "A,2024-01-20,3,2350\nB,2024-01-20,3,2350\nC,2024-01-20,3,2350\n";
  ASSERT_NO_FATAL_FAILURE(run({"new", company_.c_str()}, 1s));
  EXPECT_EQ(shown(), "");
  ASSERT_NO_FATAL_FAILURE(run({"import", company_.c_str(), assets_.c_str()}, 1s));
  EXPECT_EQ(shown(),
            "\rSaving assets: 1 of 3\rSaving assets: 2 of 3\rSaving assets: 3 of 3\r\x1B[K"
            "Imported 3 assets.\r\n");
}

}  // namespace
}  // namespace depcalc
