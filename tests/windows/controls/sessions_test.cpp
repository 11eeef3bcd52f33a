// The sessions that every host prints alike, by real messages on the native windows and with a host
// behind automation objects.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "DepCalc/calculator_screens.h"
#include "common/report_error.h"
#include "tests/drive/golden.h"
#include "tests/windows/controls/boxed_site.h"
#include "tests/windows/controls/top_window.h"
#include "tests/windows/controls/window_hands.h"
#include "tests/windows/host/automation_drive_host.h"

namespace depcalc::testing {
namespace {

/// The windows of a calculator, and hands at them.
class SeatedHands : public WindowHands {
 public:
  SeatedHands(TopWindow& top, DepCalcCont& container)
      : SeatedHands(std::make_unique<native::ScreenWindow>(top.handle(), container, nullptr), top) {
  }

 private:
  SeatedHands(std::unique_ptr<native::ScreenWindow> screen, TopWindow& top)
      : WindowHands(*screen), screen_(std::move(screen)) {
    screen_->place(top.client());
    screen_->show(true);
    screen_->takeFocus();
  }

  std::unique_ptr<native::ScreenWindow> screen_;
};

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string replayed(const std::string& file) {
  CalculatorScreens screens;
  TopWindow top;
  const drive::DriveParts parts{
      [&top](std::ostream& out, Date today) {
        return std::make_unique<BoxedSite>(out, today, [&top] { return top.handle(); });
      },
      [&top](DepCalcCont& container) { return std::make_unique<SeatedHands>(top, container); }};
  return drive::goldenTranscript(
      file,
      [](const drive::GoldenSettings& settings) {
        return std::make_unique<drive::AutomationDriveHost>(settings.fiscal_year_start);
      },
      screens, parts);
}

std::vector<std::filesystem::path> sessions() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::directory_iterator(DEPCALC_SESSIONS)) {
    if (entry.path().extension() == ".golden") found.push_back(entry.path());
  }
  return found;
}

class NativeSessions : public ::testing::TestWithParam<std::filesystem::path> {};

TEST_P(NativeSessions, PrintWhatTheyPrintOnEveryHost) {
  const std::string expected = contentOf(GetParam());
  ASSERT_NE(expected, "");
  EXPECT_EQ(replayed(expected), expected);
}

INSTANTIATE_TEST_SUITE_P(All, NativeSessions, ::testing::ValuesIn(sessions()),
                         [](const auto& at) { return at.param.stem().string(); });

}  // namespace
}  // namespace depcalc::testing
