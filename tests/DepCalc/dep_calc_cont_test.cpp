// Which record is current, when it is written, which screen comes next.
#include "DepCalc/dep_calc_cont.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/container_fixture.h"

namespace depcalc {
namespace {

using testing::Container;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::money;
using testing::warningAbout;

const std::string not_set = "Error#91: Object variable or With block variable not set";

struct Views : Container {};

TEST_F(Views, ShowOneScreenAndHideTheOthersInOrder) {
  container.ShowView(emv_Display);
  EXPECT_THAT(trace.take(),
              ElementsAre("DepCalcCtl1.Hide", "DepCalcDisplayCtl1.Show", "DepCalcCont.Resize"));
  EXPECT_EQ(container.visibleScreen(), screens.display);
  container.ShowView(emv_ViewAll);
  EXPECT_THAT(trace.take(),
              ElementsAre("DepCalcDisplayCtl1.Hide", "DepCalcView1.Show", "DepCalcCont.Resize"));
  EXPECT_EQ(container.visibleScreen(), screens.view);
  container.ShowView(emv_Calc);
  EXPECT_THAT(trace.take(),
              ElementsAre("DepCalcView1.Hide", "DepCalcCtl1.Show", "DepCalcCont.Resize"));
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
}

TEST_F(Views, RefreshTheEntryFormThatIsShownAlready) {
  container.ShowView(emv_Calc);
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcCtl1.Hide", "DepCalcCtl1.Show"));
  container.ShowView(emv_ViewAll);
  trace.take();
  container.ShowView(emv_ViewAll);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Views, GiveTheContainerTheSizeOfTheScreen) {
  const std::vector<std::pair<eMyView, const UserControl*>> views = {
      {emv_ViewAll, screens.view}, {emv_Calc, screens.ctl}, {emv_Display, screens.display}};
  for (const auto& [view, screen] : views) {
    container.ShowView(view);
    EXPECT_EQ(container.width(), screen->width());
    EXPECT_EQ(container.height(), screen->height());
  }
  screens.display->setSize(100, 200);
  screens.display->events.ResizedDisplay();
  EXPECT_EQ(container.height(), 200);
  screens.view->setSize(300, 400);
  screens.view->events.ResizedDisplay();
  EXPECT_EQ(container.width(), 300);
  EXPECT_EQ(container.visibleScreen(), screens.view);
}

TEST_F(Views, HaveNoneForPrinting) {
  container.ShowView(emv_Print);
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  EXPECT_THAT(trace.take(), IsEmpty());
  static_assert(emv_ViewAll == 0 && emv_Calc == 1 && emv_Display == 2 && emv_Print == 3);
}

TEST_F(Views, CoverTheContainerWhileTheRegisterFills) {
  Control& cover = *container.child("CoverPicture");
  container.setSize(1234, 567);
  screens.ctl->bringToFront();
  screens.view->events.ShowCover(true);
  EXPECT_TRUE(cover.visible());
  EXPECT_EQ(cover.width(), 1234);
  EXPECT_EQ(cover.height(), 567);
  for (const Control* other : container.children()) {
    EXPECT_TRUE(other == &cover || other->stacking() < cover.stacking()) << other->name();
  }
  screens.view->events.ShowCover(false);
  EXPECT_FALSE(cover.visible());
}

struct Records : Container {};

TEST_F(Records, StartBlank) {
  current().AssetID("old");
  const CalculateDepPtr old = container.CurrentRecord();
  container.NewRecord();
  EXPECT_NE(container.CurrentRecord(), old);
  EXPECT_TRUE(current().RecNew());
  EXPECT_EQ(current().RecIndex(), "0");
  EXPECT_EQ(current().AssetID() + current().AssetName() + current().ASerial() + current().ADept(),
            "");
  EXPECT_EQ(current().AssetBasis(), Currency());
  EXPECT_EQ(current().AssetSalvage(), Currency());
  EXPECT_TRUE(current().AssetStartDate().isNone());
  EXPECT_EQ(current().AssetProdCap(), "0");
  EXPECT_TRUE(current().FYEnd().isNone());
  EXPECT_EQ(current().DepConvention(), "0");
  EXPECT_EQ(current().DepMethod(), "");
  EXPECT_EQ(current().DepRecovery(), 0);
}

TEST_F(Records, AreHandedOutThemselves) {
  CalculateDepPtr entry;
  CalculateDepPtr display;
  CalculateDepPtr view;
  Date end;
  screens.ctl->events.GetCalcDep(entry, end);
  screens.display->events.GetCalcDep(display);
  screens.view->events.GetCalcDep(view);
  EXPECT_EQ(entry, container.CurrentRecord());
  EXPECT_EQ(display, entry);
  EXPECT_EQ(view, entry);
  EXPECT_EQ(end, Date::strict(2024, 3, 31));
}

TEST(RecordsBeforeStartUp, AreBlankAndDoNotBecomeCurrent) {
  testing::ScriptedSite site;
  Stage stage(site);
  testing::StandInScreens screens;
  const DepCalcCont container(stage, screens, [] { return nullptr; });
  CalculateDepPtr record;
  Date end;
  screens.ctl->events.GetCalcDep(record, end);
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(record->RecIndex(), "0");
  EXPECT_TRUE(record->RecNew());
  EXPECT_TRUE(end.isNone());
  CalculateDepPtr other;
  screens.display->events.GetCalcDep(other);
  ASSERT_NE(other, nullptr);
  EXPECT_NE(other, record);
  EXPECT_TRUE(other->RecNew());
  screens.view->events.GetCalcDep(other);
  EXPECT_TRUE(other->RecNew());
  EXPECT_EQ(container.CurrentRecord(), nullptr);
}

TEST_F(Records, HaveTheFiscalYearEndRefreshedFromTheHost) {
  file->fiscalYearStart(Date::strict(2024, 10, 1));
  CalculateDepPtr record;
  Date end;
  screens.ctl->events.GetCalcDep(record, end);
  EXPECT_EQ(end, Date::strict(2024, 9, 30));
}

struct Property {
  std::string name;
  std::function<void(CalculateDep&)> change;
  std::string warning;  // of the save that follows; "" for none
  bool makes_a_blank_record_changed;
};

std::vector<Property> comparedProperties() {
  using Record = CalculateDep;
  return {
      {"AssetBasis", [](Record& r) { r.AssetBasis(money("2000")); },
       warningAbout("basis of this asset"), true},
      {"ASerial", [](Record& r) { r.ASerial("x"); }, "", true},
      {"ADept", [](Record& r) { r.ADept("x"); }, "", true},
      {"AssetID", [](Record& r) { r.AssetID("x"); }, "", true},
      {"AssetName", [](Record& r) { r.AssetName("x"); }, "", true},
      {"AssetProdCap", [](Record& r) { r.AssetProdCap("7"); },
       warningAbout("production capacity of this asset"), true},
      {"AssetSalvage", [](Record& r) { r.AssetSalvage(money("7")); },
       warningAbout("salvage value of this asset"), true},
      {"AssetStartDate", [](Record& r) { r.AssetStartDate(Date::strict(2021, 1, 1)); },
       warningAbout("placed-in-service date of this asset"), true},
      {"DepConvention", [](Record& r) { r.DepConvention("3"); },
       warningAbout("convention of this asset"), false},
      {"DepRecovery", [](Record& r) { r.DepRecovery(9); },
       warningAbout("useful life of this asset"), true},
      {"FYEnd", [](Record& r) { r.FYEnd(Date::strict(2021, 6, 30)); },
       warningAbout("end of your fiscal year for this asset"), false},
      {"DepMethod", [](Record& r) { r.DepMethod("DDB"); }, "", false},
  };
}

struct Changes : Container {};

TEST_F(Changes, AreFoundInEveryComparedProperty) {
  saveAsset("A1");
  for (const Property& property : comparedProperties()) {
    edit(1);
    EXPECT_FALSE(container.CheckforChanges()) << property.name;
    property.change(current());
    EXPECT_TRUE(container.CheckforChanges()) << property.name;
    bool asked = false;
    screens.ctl->events.CheckMe(asked);
    EXPECT_TRUE(asked) << property.name;
  }
  edit(1);
  current().AssetEndDate(Date::strict(2022, 1, 1));
  current().ASalePrice("5");
  current().DepItem(0, money("5"));
  EXPECT_FALSE(container.CheckforChanges()) << "what follows from the rest is not compared";
}

TEST_F(Changes, OfANewRecordAreWhatTheUserEntered) {
  for (const Property& property : comparedProperties()) {
    container.NewRecord();
    EXPECT_FALSE(container.CheckforChanges());
    property.change(current());
    EXPECT_EQ(container.CheckforChanges(), property.makes_a_blank_record_changed) << property.name;
  }
}

TEST_F(Changes, AreThoseOfANewRecordUntilTheRegisterWasRead) {
  current().RecIndex("5");
  EXPECT_FALSE(container.CheckforChanges());
  current().AssetName("x");
  EXPECT_TRUE(container.CheckforChanges());
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(Changes, AreNoneWhereTheSavedCopyIsMissing) {
  saveAsset("A1");
  container.NewRecord();
  current().AssetName("x");
  for (const auto& [index, error] : std::vector<std::pair<std::string, std::string>>{
           {"2", not_set},
           {"3", "Error#9: Subscript out of range"},
           {"-1", "Error#9: Subscript out of range"}}) {
    takeReports();
    current().RecIndex(index);
    EXPECT_FALSE(container.CheckforChanges()) << index;
    EXPECT_THAT(takeReports(), ElementsAre("DepCalc::CheckforChanges " + error));
  }
}

struct Saving : Container {};

TEST_F(Saving, WarnsOnceOfAnInputChangedWithoutRecalculating) {
  saveAsset("A1");
  for (const Property& property : comparedProperties()) {
    edit(1);
    property.change(current());
    screens.ctl->events.ButtonClick("Save");
    std::vector<MessageBox> expected;
    if (!property.warning.empty()) {
      expected.push_back({property.warning, BoxButtons::ok, "Recalculate"});
    }
    EXPECT_EQ(site.takeBoxes(), expected) << property.name;
    EXPECT_EQ(container.visibleScreen(), screens.view);
    loadRegister();
  }
  EXPECT_EQ(storedName(1), "x") << "the warning stops nothing";
}

TEST_F(Saving, WarnsOfTheFirstOfSeveralChangesInAFixedOrder) {
  const std::vector<std::string> order = {"AssetStartDate", "FYEnd",      "DepRecovery",
                                          "DepConvention",  "AssetBasis", "AssetSalvage",
                                          "AssetProdCap"};
  const std::vector<Property> properties = comparedProperties();
  for (std::size_t first = 0; first < order.size(); ++first) {
    saveAsset("A");
    edit(static_cast<int>(first + 1));
    std::string expected;
    for (std::size_t i = order.size(); i-- > first;) {
      const auto property = std::find_if(properties.begin(), properties.end(),
                                         [&](const Property& one) { return one.name == order[i]; });
      property->change(current());
      expected = property->warning;
    }
    container.SaveCurrent();
    EXPECT_THAT(site.takeBoxes(), ElementsAre(MessageBox{expected, BoxButtons::ok, "Recalculate"}));
  }
}

TEST_F(Saving, AppendsANewRecordWithoutAWarning) {
  saveAsset("A1");
  saveAsset("A2");
  EXPECT_THAT(site.boxes, IsEmpty());
  EXPECT_EQ(table()->Count(), 3);
  EXPECT_EQ(current().RecIndex(), "2");
  EXPECT_EQ(container.visibleScreen(), screens.view);
}

TEST_F(Saving, FromTheComparisonWarnsOfNothing) {
  saveAsset("A1");
  edit(1);
  screens.ctl->events.ButtonClick("Calc");
  current().AssetBasis(money("5000"));
  current().AssetName("Lathe");
  screens.display->events.ButtonClick("Save");
  EXPECT_THAT(site.boxes, IsEmpty());
  EXPECT_EQ(storedName(1), "Lathe");
  EXPECT_EQ(container.visibleScreen(), screens.view);
}

TEST_F(Saving, StopsWhereTheSavedCopyIsMissing) {
  saveAsset("A1");
  current().RecIndex("2");
  takeReports();
  container.ShowView(emv_Calc);
  screens.ctl->events.ButtonClick("Save");
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::DepCalcCtl1_ButtonClick " + not_set));
  EXPECT_EQ(container.visibleScreen(), screens.ctl) << "the screen before the error stays";
  EXPECT_EQ(table()->Count(), 2);
}

TEST_F(Saving, OfARecordForTheRegisterMakesItCurrent) {
  saveAsset("A1");
  const CalculateDepPtr asset = loadRegister()[0];
  asset->AssetName("Press");
  screens.view->events.SaveRecord(asset);
  EXPECT_EQ(container.CurrentRecord(), asset);
  EXPECT_EQ(storedName(1), "Press");
}

}  // namespace
}  // namespace depcalc
