// Attaching to the host, following it, letting go of it; palette.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/failing/failing_host.h"
#include "tests/support/container_fixture.h"

namespace depcalc {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string not_set = "Error#91: Object variable or With block variable not set";

struct StartUp : testing::ContainerFixture {
  void expectNothingShown() {
    EXPECT_EQ(container.visibleScreen(), nullptr);
    EXPECT_FALSE(container.child("CoverPicture")->visible());
    EXPECT_FALSE(container.child("WidthLabel")->visible());
  }
};

TEST_F(StartUp, RefusesWithoutACompanyFile) {
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes,
              ElementsAre(MessageBox{
                  "You must have a company file open to use this feature. Open a company file, "
                  "then select the Depreciation Calculator again.",
                  BoxButtons::ok, "Depreciate Your Assets"}));
  expectNothingShown();
  EXPECT_EQ(container.TableName(), "");
  EXPECT_EQ(container.CurrentRecord(), nullptr);
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(StartUp, RefusesAMultiUserFileAndLeavesItAlone) {
  application->open(file);
  file->multiUser(true);
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes,
              ElementsAre(MessageBox{
                  "You must be in single-user mode to use this feature. To change modes, choose "
                  "Switch to Single-user Mode from the File menu.",
                  BoxButtons::ok, "Depreciate Your Assets"}));
  expectNothingShown();
  EXPECT_EQ(container.TableName(), "");
  EXPECT_EQ(table()->Count(), 0);
}

TEST_F(StartUp, ShowsTheEntryFormForAnEmptyRegister) {
  application->open(file);
  container.DepCalcCont_Initialize();
  EXPECT_THAT(site.boxes, IsEmpty());
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  EXPECT_EQ(container.TableName(), "ZEM:DepCalc");
  EXPECT_FALSE(container.MultiUser());
  ASSERT_NE(container.CurrentRecord(), nullptr);
  EXPECT_TRUE(container.CurrentRecord()->RecNew());
  EXPECT_EQ(container.CurrentRecord()->RecIndex(), "0");
  ASSERT_EQ(table()->Count(), 1);
  EXPECT_EQ(table()->Item(0)->Fields().GetValue("FYEnd").asDate(Date()), Date::strict(2024, 3, 31));
  EXPECT_TRUE(container.child("WidthLabel")->visible());
}

TEST_F(StartUp, ShowsTheRegisterWhenThereAreAssets) {
  start();
  saveAsset("A1");
  testing::StandInScreens own_screens;
  file->fiscalYearStart(Date::strict(2025, 7, 1));
  DepCalcCont later(stage, own_screens, create_host, [] { return std::nullopt; });
  later.DepCalcCont_Initialize();
  EXPECT_EQ(later.visibleScreen(), own_screens.view);
  EXPECT_EQ(table()->Item(0)->Fields().GetValue("FYEnd").asDate(Date()), Date::strict(2025, 6, 30))
      << "the fiscal-year end follows the host at every start";
}

TEST_F(StartUp, HandsOutTheStartDirectory) {
  start();
  std::string directory;
  screens.view->events.GetStartDir(directory);
  EXPECT_EQ(directory, "/books/start");
}

TEST_F(StartUp, EndsThroughItsTrap) {
  create_host = []() -> std::shared_ptr<HostApplication> { throw RuntimeError(429, "No object"); };
  container.DepCalcCont_Initialize();
  create_host = [] { return nullptr; };
  container.DepCalcCont_Initialize();
  EXPECT_THAT(reports, ElementsAre("DepCalc::DepCalcCont_Initialize Error#429: No object",
                                   "DepCalc::DepCalcCont_Initialize " + not_set));
  EXPECT_THAT(site.boxes, IsEmpty());
  EXPECT_EQ(container.visibleScreen(), nullptr);
}

TEST_F(StartUp, SurvivesAnyFailingCallOfTheHost) {
  application->open(file);
  const auto plan = std::make_shared<FailurePlan>();
  bool failed = true;
  int nth = 0;
  while (failed) {
    *plan = FailurePlan{};
    plan->fail_at = ++nth;
    testing::StandInScreens own_screens;
    DepCalcCont failing(
        stage, own_screens, [&] { return failingApplication(application, plan); },
        [] { return std::nullopt; });
    failing.DepCalcCont_Initialize();
    failed = plan->calls >= nth;
    EXPECT_EQ(takeReports().size(), failed ? 1U : 0U) << nth;
    EXPECT_EQ(failing.visibleScreen(), failed ? nullptr : own_screens.ctl) << nth;
    ASSERT_LT(nth, 100);
  }
  EXPECT_GT(nth, 8);
}

TEST_F(StartUp, FollowsTheCompanyFileClosingAndOpening) {
  start();
  EXPECT_EQ(container.m_orvcf(), file);
  application->close();
  EXPECT_EQ(container.m_orvcf(), nullptr);
  EXPECT_EQ(container.TableName(), "ZEM:DepCalc");
  EXPECT_EQ(container.visibleScreen(), screens.ctl) << "what is shown stays shown";
  const auto other = std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1));
  application->open(other);
  EXPECT_EQ(container.m_orvcf(), other);
}

TEST_F(StartUp, KeepsTheCompanyFileWhereTheNewOneCannotBeHad) {
  const auto plan = std::make_shared<FailurePlan>();
  create_host = [&] { return failingApplication(application, plan); };
  application->open(file);
  container.DepCalcCont_Initialize();
  const auto before = container.m_orvcf();
  *plan = {.fail_at = 1};
  application->open(std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1)));
  EXPECT_THAT(reports, ElementsAre("DepCalc::m_orv_CompanyFileOpened Error#57: Device I/O error"));
  EXPECT_EQ(container.m_orvcf(), before);
}

TEST_F(StartUp, TakesUpAFileThatWasOpenedAfterTheRefusal) {
  container.DepCalcCont_Initialize();
  application->open(file);
  EXPECT_EQ(container.m_orvcf(), file);
  EXPECT_EQ(container.visibleScreen(), nullptr);
}

TEST_F(StartUp, EndsEveryProcedureThroughItsTrapOnceTheFileIsClosed) {
  start();
  saveAsset("A1");
  application->close();
  takeReports();
  CalculateDepArray all(2);
  std::int16_t year = 7;
  double years = 8;
  std::int16_t assets = 9;
  screens.view->events.GetCalcDepAll(all, year, years, assets);
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::View_GetCalcDepAll " + not_set));
  EXPECT_THAT(all, ElementsAre(nullptr, nullptr));
  EXPECT_EQ(year, 7);
  CalculateDepPtr record;
  Date end;
  screens.ctl->events.GetCalcDep(record, end);
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::ReadTableInfo " + not_set));
  EXPECT_EQ(record, container.CurrentRecord());
  EXPECT_EQ(end, Date::strict(2024, 3, 31)) << "as last known";
  screens.ctl->events.ButtonClick("Save");
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::WriteData " + not_set));
  screens.view->events.DeleteButtonClick(all, 0);
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::DeleteRecord " + not_set));
  screens.view->events.SaveRecord(record);
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::WriteData " + not_set));
}

TEST_F(StartUp, LetsGoOfTheHostWhenItTerminates) {
  start();
  container.Initialize(*application);
  container.AboutToTerminate();
  EXPECT_EQ(container.m_orvcf(), nullptr);
  EXPECT_EQ(application.use_count(), 1);
  container.AboutToTerminate();
  container.Terminate();
  application->open(std::make_shared<MemoryCompanyFile>(Date::strict(2024, 1, 1)));
  EXPECT_EQ(container.m_orvcf(), nullptr) << "it listens no more";
}

TEST_F(StartUp, KeepsNothingOfTheHostThatInitializeHandsIn) {
  container.Initialize(*application);
  EXPECT_EQ(application.use_count(), 1);
  EXPECT_EQ(container.m_orvcf(), nullptr);
}

TEST_F(StartUp, IsHeardNoMoreOnceTheContainerIsGone) {
  application->open(file);
  {
    testing::StandInScreens own_screens;
    DepCalcCont short_lived(stage, own_screens, create_host, [] { return std::nullopt; });
    short_lived.DepCalcCont_Initialize();
    EXPECT_EQ(application.use_count(), 2);
  }
  EXPECT_EQ(application.use_count(), 1);
  application->close();
  application->open(file);
}

TEST_F(StartUp, AnswersForItsObjectSafety) {
  IObjectSafety& safety = container;
  const Guid dispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  std::uint32_t supported = 0;
  std::uint32_t enabled = 0;
  EXPECT_EQ(safety.GetInterfaceSafetyOptions(dispatch, supported, enabled), HResult::ok);
  EXPECT_EQ(enabled, 1U);
}

TEST(IsHostProcess, KnowsTheHostAndTheDevelopmentEnvironmentByPath) {
  const std::vector<std::pair<std::optional<std::string>, bool>> cases = {
      {"C:\\Program Files\\Books\\ORVW32.EXE", true},
      {"c:\\orvw32\\other.exe", true},
      {"/usr/bin/depcalc-desktop", true},
      {"/opt/DepCalc-Desktop/bin/x", true},
      {"/usr/bin/depcalc", false},
      {"C:\\orvw3\\2.exe", false},
      {"", false},
      {std::nullopt, false},
  };
  for (const auto& one : cases) {
    const UtilModule util([] { return nullptr; }, [&] { return one.first; });
    EXPECT_EQ(util.IsHostProcess(), one.second) << one.first.value_or("(unknown)");
  }
}

TEST(IsHostProcess, AsksThePlatformForTheRunningProgram) {
  const std::optional<std::string> path = runningExecutablePath();
  ASSERT_TRUE(path.has_value());
  EXPECT_THAT(*path, HasSubstr("container_test"));
  EXPECT_LE(path->size(), 256U);
  EXPECT_FALSE(UtilModule([] { return nullptr; }).IsHostProcess());
}

struct HostPaletteTest : testing::ContainerFixture {
  HostPaletteTest() { file->palettePicture({{0x00A8C5E1, 0x00000066}}); }

  const Palette palette{{Colour(0x00A8C5E1), Colour(0x00000066)}};
};

TEST_F(HostPaletteTest, IsAppliedToAllFiveKindsOfUserControl) {
  application->open(file);
  executable = "C:\\Books\\orvw32.exe";
  testing::StandInScreens own_screens;
  DepCalcCont own(stage, own_screens, create_host, [this] { return executable; });
  own.DepCalcCont_Initialize();
  for (const UserControl* control :
       std::vector<const UserControl*>{&own, own_screens.view, own_screens.ctl, own_screens.display,
                                       own_screens.popup1, own_screens.popup2}) {
    EXPECT_EQ(control->palette(), palette) << control->name();
    EXPECT_EQ(control->paletteMode(), 2) << control->name();
  }
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(HostPaletteTest, IsNotAppliedElsewhere) {
  start();
  EXPECT_EQ(container.palette(), std::nullopt);
  EXPECT_EQ(screens.ctl->paletteMode(), 0);
}

TEST_F(HostPaletteTest, IsAppliedAgainWhenTheContainerIsShownAndPainted) {
  start();
  executable = "depcalc-desktop";
  stage.expose();
  stage.pumpPaint();
  EXPECT_EQ(container.palette(), palette);
  file->palettePicture({{1}});
  container.hide();
  container.show();
  EXPECT_EQ(container.palette(), (Palette{{Colour(1)}}));
}

TEST_F(HostPaletteTest, IsReportedMissingWithoutACompanyFile) {
  executable = "depcalc-desktop";
  container.DepCalcCont_Initialize();
  EXPECT_THAT(reports, ::testing::Not(IsEmpty()));
  EXPECT_THAT(reports, Each("DepCalc::SetupPalette " + not_set));
}

TEST_F(HostPaletteTest, IsLeftAloneWhileTheControlIsBeingDesigned) {
  application->open(file);
  const UtilModule util(create_host, [] { return "orvw32"; });
  const AmbientProperties designing{false};
  util.ApplyHostPalette(container, &designing);
  EXPECT_EQ(container.palette(), std::nullopt);
  const AmbientProperties using_it{true};
  util.ApplyHostPalette(container, &using_it);
  EXPECT_EQ(container.palette(), palette);
}

}  // namespace
}  // namespace depcalc
