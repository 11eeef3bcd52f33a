// Whatever a user does, what must always hold holds.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

#include "DepCalc/calculator_screens.h"
#include "common/report_error.h"
#include "host/failing/failing_host.h"
#include "tests/drive/box_catalogue.h"
#include "tests/drive/memory_drive_host.h"
#include "tests/drive/walker.h"
#include "tests/support/allocation_count.h"
#include "tests/support/effort.h"

namespace depcalc::drive {
namespace {

constexpr unsigned first_seed = 20240615;
constexpr std::size_t actions_of_a_walk = 2000;
constexpr int table_check_interval = 8;  // a copy of every value is made each time
constexpr std::size_t most_bytes = 8 << 20;

unsigned walks() { return testing_support::inLongRun() ? 500 : 50; }

bool inCatalogue(const std::string& box) {
  return std::find(box_catalogue.begin(), box_catalogue.end(), box) != box_catalogue.end();
}

struct OpenHost : MemoryDriveHost {
  OpenHost() : MemoryDriveHost(Date::strict(2024, 4, 1)) { open("walk.company"); }
};

/// The first thing that does not hold; "" when all holds.
std::string wrongInOutput(const std::string& printed) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("error #")) return line;
    const std::string box = boxOfLine(line);
    if (!box.empty() && !inCatalogue(box)) return "not in the catalogue: " + box;
  }
  return {};
}

std::string wrongInViews(const DepCalcCont& container) {
  int visible = 0;
  for (const char* screen : {"DepCalcView1", "DepCalcCtl1", "DepCalcDisplayCtl1"}) {
    visible += container.child(screen)->visible() ? 1 : 0;
  }
  return visible == 1 ? "" : std::to_string(visible) + " screens are visible";
}

std::string wrongInTable(DriveHost& host) {
  const auto file = host.application()->CompanyFile();
  if (file == nullptr) return {};
  const auto table = file->OpenTable("ZEM:DepCalc");
  for (int index = 0; index < table->Count(); ++index) {
    const auto number = static_cast<std::int16_t>(index);
    if (!table->Exists(number)) return "no record " + std::to_string(index);
    const StoredValue own = table->Item(number)->Fields().GetValue("RecIndex");
    if (index > 0 && own != StoredValue::integer(number)) {
      return "record " + std::to_string(index) + " has " + own.asText();
    }
  }
  return {};
}

/// Fails some of its calls, whichever they are.
struct FlakyHost : OpenHost {
  std::shared_ptr<HostApplication> application() override {
    return failingApplication(OpenHost::application(), plan);
  }
  void failSoon(int calls) { plan->fail_at = plan->calls + 1 + calls; }

  std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
};

void walk(unsigned seed) {
  OpenHost host;
  CalculatorScreens screens;
  Walker walker(seed, host, screens, {Date::strict(2024, 6, 15)});
  const std::size_t before = testing::liveBytes();
  for (int step = 0; walker.commands() < actions_of_a_walk; ++step) {
    const std::string printed = walker.step();
    const std::string wrong =
        wrongInOutput(printed) + wrongInViews(walker.driver().container()) +
        (step % table_check_interval == 0 ? wrongInTable(host) : std::string());
    ASSERT_EQ(wrong, "") << "seed " << seed << ", after\n" << walker.script();
    ASSERT_LT(testing::liveBytes(), before + most_bytes) << "seed " << seed;
  }
}

TEST(RandomWalk, KeepsWhatMustAlwaysHold) {
  std::size_t kept = 0;
  for (unsigned i = 0; i < walks(); ++i) {
    walk(first_seed + i);
    if (::testing::Test::HasFatalFailure()) return;
    if (i == 0) kept = testing::liveBytes();
  }
  EXPECT_LE(testing::liveBytes(), kept + 1024) << "a calculator that is gone leaves nothing";
}

/// One calculator used all day: what it holds on to does not grow. The peaks of the tenths are
/// compared, for how much is held at one moment depends on what is shown then.
TEST(RandomWalk, HoldsOnToNoMoreAtTheEndOfALongSession) {
  const std::size_t actions = testing_support::inLongRun() ? 1'000'000 : 20'000;
  OpenHost host;
  CalculatorScreens screens;
  Walker walker(first_seed, host, screens, {Date::strict(2024, 6, 15)});
  std::vector<std::size_t> peaks;
  for (int tenth = 0; tenth < 10; ++tenth) {
    std::size_t peak = 0;
    for (std::size_t done = 0; done < actions / 10; done += walker.commands()) {
      walker.forget();
      const std::string wrong = wrongInOutput(walker.step());
      ASSERT_EQ(wrong, "") << "tenth " << tenth << ", after\n" << walker.script();
      peak = std::max(peak, testing::liveBytes());
    }
    peaks.push_back(peak);
  }
  constexpr std::size_t slack = 128 << 10;  // some assets and years more, not a leak of each action
  RecordProperty("peaks", ::testing::PrintToString(peaks));
  EXPECT_LE(*std::max_element(peaks.begin() + 5, peaks.end()),
            *std::max_element(peaks.begin() + 1, peaks.begin() + 5) + slack)
      << ::testing::PrintToString(peaks);
}

TEST(RandomWalk, GoesOnWhenTheHostFailsNowAndThen) {
  unsigned failures = 0;
  const ErrorReportHook hook([&failures](const ErrorReport& report) {
    if (report.number == 57 && report.description == "Device I/O error") ++failures;
  });
  for (unsigned seed = first_seed; seed < first_seed + walks() / 5; ++seed) {
    FlakyHost host;
    CalculatorScreens screens;
    Walker walker(seed, host, screens, {Date::strict(2024, 6, 15)});
    std::mt19937 random(seed);
    while (walker.commands() < actions_of_a_walk) {
      host.failSoon(static_cast<int>(random() % 1000));
      const std::string printed = walker.step();
      const std::string wrong = wrongInOutput(printed) + wrongInViews(walker.driver().container());
      ASSERT_EQ(wrong, "") << "seed " << seed << ", after\n" << walker.script();
    }
  }
  EXPECT_GT(failures, walks()) << "failures that a procedure met";
}

}  // namespace
}  // namespace depcalc::drive
