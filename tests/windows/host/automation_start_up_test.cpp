// The calculator on an automation host: start-up and its refusals, the host's events, the palette,
// letting go.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/failing/failing_host.h"
#include "tests/support/container_fixture.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/served_host.h"
#include "windows/host/automation_host.h"

#undef MessageBox  // the calculator's, not the system's

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct OnAnAutomationHost : testing::ContainerFixture {
  OnAnAutomationHost() {
    create_host = [this] { return automationApplication(served.Get()); };
  }
  /// How many references there are besides the test's.
  [[nodiscard]] ULONG held() const {
    served.Get()->AddRef();
    return served.Get()->Release() - 1;
  }

  testing_support::Apartment apartment;
  std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
  Microsoft::WRL::ComPtr<IDispatch> served =
      testing_support::servedApplication(failingApplication(application, plan));
};

TEST_F(OnAnAutomationHost, RefusesWithoutACompanyFile) {
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes,
              ElementsAre(MessageBox{
                  "You must have a company file open to use this feature. Open a company file, "
                  "then select the Depreciation Calculator again.",
                  BoxButtons::ok, "Depreciate Your Assets"}));
  EXPECT_EQ(container.visibleScreen(), nullptr);
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(OnAnAutomationHost, RefusesAMultiUserFile) {
  application->open(file);
  file->multiUser(true);
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes,
              ElementsAre(MessageBox{
                  "You must be in single-user mode to use this feature. To change modes, choose "
                  "Switch to Single-user Mode from the File menu.",
                  BoxButtons::ok, "Depreciate Your Assets"}));
  EXPECT_EQ(table()->Count(), 0);
}

TEST_F(OnAnAutomationHost, StartsAndSaves) {
  start();
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  std::string directory;
  screens.view->events.GetStartDir(directory);
  EXPECT_EQ(directory, "/books/start");
  saveAsset("A1");
  EXPECT_THAT(reports, IsEmpty());
  EXPECT_EQ(table()->Count(), 2);
  EXPECT_EQ(table()->Item(1)->Fields().GetValue("ABasis"),
            StoredValue::currency(Currency::fromText("1000")));
  testing::StandInScreens own_screens;
  DepCalcCont later(stage, own_screens, create_host, [] { return std::nullopt; });
  later.DepCalcCont_Initialize();
  EXPECT_EQ(later.visibleScreen(), own_screens.view);
}

TEST_F(OnAnAutomationHost, SurvivesAnyFailingCallOfTheHost) {
  application->open(file);
  bool failed = true;
  int nth = 0;
  while (failed) {
    *plan = FailurePlan{};
    plan->fail_at = ++nth;
    testing::StandInScreens own_screens;
    DepCalcCont failing(stage, own_screens, create_host, [] { return std::nullopt; });
    failing.DepCalcCont_Initialize();
    failed = plan->calls >= nth;
    const auto told = takeReports();
    if (failed) {
      EXPECT_THAT(told, ElementsAre("DepCalc::DepCalcCont_Initialize Error#57: Device I/O error"));
    } else {
      EXPECT_THAT(told, IsEmpty());
    }
    EXPECT_EQ(failing.visibleScreen(), failed ? nullptr : own_screens.ctl) << nth;
    ASSERT_LT(nth, 100);
  }
  EXPECT_GT(nth, 8);
}

TEST_F(OnAnAutomationHost, FollowsTheCompanyFileClosingAndOpening) {
  start();
  ASSERT_NE(container.m_orvcf(), nullptr);
  application->close();
  EXPECT_EQ(container.m_orvcf(), nullptr);
  application->open(std::make_shared<MemoryCompanyFile>(Date::strict(2021, 10, 1)));
  ASSERT_NE(container.m_orvcf(), nullptr);
  EXPECT_EQ(container.m_orvcf()->FiscalYearStart(), Date::strict(2021, 10, 1));
}

TEST_F(OnAnAutomationHost, LetsGoOfTheHostWhenItTerminates) {
  start();
  EXPECT_GT(held(), 0U);
  container.AboutToTerminate();
  EXPECT_EQ(held(), 0U);
  EXPECT_EQ(container.m_orvcf(), nullptr);
  application->open(std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1)));
  EXPECT_EQ(container.m_orvcf(), nullptr) << "it listens no more";
  container.AboutToTerminate();
  container.Terminate();
}

TEST_F(OnAnAutomationHost, LetsGoOfTheHostWhenItEnds) {
  application->open(file);
  {
    testing::StandInScreens own_screens;
    DepCalcCont short_lived(stage, own_screens, create_host, [] { return std::nullopt; });
    short_lived.DepCalcCont_Initialize();
    EXPECT_GT(held(), 0U);
  }
  EXPECT_EQ(held(), 0U);
  application->close();
}

TEST_F(OnAnAutomationHost, OutlivesAHostThatLetsGoFirst) {
  start();
  served.Reset();
  application->close();
  EXPECT_EQ(container.m_orvcf(), nullptr);
  application.reset();
  container.AboutToTerminate();
}

/// Terminates the calculator when it hears of a company file.
struct Terminating final : HostApplicationEvents, HostCompanyFileEvents {
  explicit Terminating(DepCalcCont& its_container) : container(its_container) {}
  void CompanyFileOpened() override { container.AboutToTerminate(); }
  void CompanyFileClosing() override { container.AboutToTerminate(); }
  DepCalcCont& container;
};

TEST_F(OnAnAutomationHost, CanBeTerminatedInTheMiddleOfAnEvent) {
  Terminating before(container);
  file->advise(before);
  start();
  application->close();
  EXPECT_EQ(container.m_orvcf(), nullptr);
  EXPECT_EQ(held(), 0U);
  file->unadvise(before);
}

TEST_F(OnAnAutomationHost, IsConnectedToWhileSomebodyListens) {
  struct Silent final : HostApplicationEvents {
    void CompanyFileOpened() override {}
  } one, other;
  const auto host = automationApplication(served.Get());
  const ULONG unconnected = held();
  host->advise(one);
  host->advise(other);
  host->unadvise(one);
  EXPECT_GT(held(), unconnected);
  host->unadvise(other);
  EXPECT_EQ(held(), unconnected);
  host->advise(one);
  EXPECT_GT(held(), unconnected);
}

struct LettingGo final : HostApplicationEvents {
  void CompanyFileOpened() override { host = nullptr; }
  std::shared_ptr<HostApplication> host;
};

TEST_F(OnAnAutomationHost, MayBeLetGoByItsOwnEvent) {
  LettingGo first;
  LettingGo second;
  first.host = second.host = automationApplication(served.Get());
  first.host->advise(first);
  second.host->advise(second);
  application->open(file);
  EXPECT_EQ(held(), 0U);
}

TEST_F(OnAnAutomationHost, TakesItsPaletteFromTheHostInItsProcess) {
  file->palettePicture({{0x00A8C5E1, 0x00000066}});
  executable = "C:\\Books\\orvw32.exe";
  start();
  stage.expose();
  stage.pumpPaint();
  EXPECT_EQ(container.palette(), (Palette{{Colour(0x00A8C5E1), Colour(0x00000066)}}));
  EXPECT_EQ(container.paletteMode(), 2);
}

}  // namespace
}  // namespace depcalc
