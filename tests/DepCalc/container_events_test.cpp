// The container's answers to its screens: buttons, register, leaving, help.
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

struct Buttons : Container {};

TEST_F(Buttons, OfTheEntryFormLeadOn) {
  auto& events = screens.ctl->events;
  events.ButtonClick("Calc");
  EXPECT_EQ(container.visibleScreen(), screens.display);
  container.ShowView(emv_Calc);
  const CalculateDepPtr before = container.CurrentRecord();
  events.ButtonClick("ViewAll");
  EXPECT_EQ(container.visibleScreen(), screens.view);
  EXPECT_EQ(table()->Count(), 1) << "nothing is saved";
  EXPECT_EQ(container.CurrentRecord(), before);
  events.ButtonClick("New");
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  EXPECT_NE(container.CurrentRecord(), before);
  current().AssetStartDate(Date::strict(2020, 1, 1));
  current().FYEnd(Date::strict(2020, 12, 31));
  current().AssetName("Saw");
  trace.take();
  events.ButtonClick("SaveandNew");
  EXPECT_EQ(storedName(1), "Saw");
  EXPECT_EQ(current().AssetName(), "");
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcCtl1.Hide", "DepCalcCtl1.Show"));
}

TEST_F(Buttons, OfTheComparisonLeadBack) {
  screens.ctl->events.ButtonClick("Calc");
  current().AssetName("kept");
  screens.display->events.ButtonClick("Close");
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
  EXPECT_EQ(current().AssetName(), "kept");
  EXPECT_EQ(table()->Count(), 1);
  screens.ctl->events.ButtonClick("Calc");
  screens.display->events.ButtonClick("ViewAll");
  EXPECT_EQ(container.visibleScreen(), screens.view);
  EXPECT_EQ(table()->Count(), 1);
}

TEST_F(Buttons, WithOtherTextsDoNothing) {
  for (const std::string text :
       {"", "calc", "SAVE", "SaveAndNew", "Close", "Edit", "Print", "new", "ViewAll "}) {
    trace.take();
    screens.ctl->events.ButtonClick(text);
    EXPECT_THAT(trace.take(), IsEmpty()) << text;
  }
  container.ShowView(emv_Display);
  for (const std::string text : {"", "close", "Calc", "New", "SaveandNew", "viewall"}) {
    trace.take();
    screens.display->events.ButtonClick(text);
    EXPECT_THAT(trace.take(), IsEmpty()) << text;
  }
  EXPECT_EQ(table()->Count(), 1);
}

TEST_F(Buttons, OfTheRegisterOpenTheEntryForm) {
  for (const std::string text : {"New", "Edit", "", "new", "Print"}) {
    container.ShowView(emv_ViewAll);
    current().RecNew(false);
    const CalculateDepPtr before = container.CurrentRecord();
    screens.view->events.ButtonClick(text);
    EXPECT_EQ(container.visibleScreen(), screens.ctl) << text;
    const bool replaced = text == "New" || text == "Edit";
    EXPECT_EQ(container.CurrentRecord() != before, replaced) << text;
  }
}

TEST_F(Buttons, EditReadsTheAssetAnew) {
  saveAsset("A1");
  edit(1);
  EXPECT_EQ(current().AssetID(), "A1");
  current().AssetID("unsaved");
  container.ShowView(emv_ViewAll);
  screens.view->events.ButtonClick("Edit");
  EXPECT_EQ(current().AssetID(), "A1");
  EXPECT_EQ(current().RecIndex(), "1");
}

TEST_F(Buttons, EditOfARecordNeverSavedStartsABlankOne) {
  current().AssetID("unsaved");
  screens.view->events.ButtonClick("Edit");
  EXPECT_EQ(current().AssetID(), "");
  EXPECT_TRUE(current().RecNew());
}

TEST_F(Buttons, EndThroughTheirTraps) {
  saveAsset("A1");
  current().RecIndex("40000");
  takeReports();
  const std::string overflow = " Error#6: Overflow";
  screens.display->events.ButtonClick("Save");
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::DepCalcDisplayCtl1_ButtonClick" + overflow));
  current().RecNew(false);
  screens.view->events.ButtonClick("Edit");
  EXPECT_THAT(takeReports(), ElementsAre("DepCalc::DepCalcView1_ButtonClick" + overflow));
  EXPECT_EQ(container.visibleScreen(), screens.view);
}

struct RegisterData : Container {};

TEST_F(RegisterData, HasAnEmptySlotBehindTheAssets) {
  saveAsset("A1");
  saveAsset("A2");
  CalculateDepArray all;
  std::int16_t start = 0;
  double years = 0;
  std::int16_t assets = 0;
  screens.view->events.GetCalcDepAll(all, start, years, assets);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[0]->AssetID(), "A1");
  EXPECT_EQ(all[1]->AssetID(), "A2");
  EXPECT_EQ(all[2], nullptr);
  EXPECT_EQ(start, 2020);
  EXPECT_EQ(years, 6);
  EXPECT_EQ(assets, 2);
  EXPECT_FALSE(current().RecNew()) << "reading an asset to its end clears the flag";
}

TEST_F(RegisterData, SharesItsRecordsWithTheSavedState) {
  saveAsset("A1");
  const CalculateDepArray all = loadRegister();
  edit(1);
  EXPECT_FALSE(container.CheckforChanges());
  all[0]->AssetName("changed behind its back");
  EXPECT_TRUE(container.CheckforChanges());
}

TEST_F(RegisterData, OfAnEmptyTableLeavesTheCallerAlone) {
  table()->Item(0)->Delete();
  CalculateDepArray all(2);
  std::int16_t start = 1;
  double years = 2;
  std::int16_t assets = 3;
  screens.view->events.GetCalcDepAll(all, start, years, assets);
  EXPECT_THAT(all, ElementsAre(nullptr, nullptr));
  EXPECT_EQ(start, 1);
  EXPECT_EQ(years, 2);
  EXPECT_EQ(assets, 3);
  EXPECT_THAT(reports, IsEmpty());
}

TEST_F(RegisterData, LosesADeletedAsset) {
  for (const std::string id : {"A1", "A2", "A3"}) saveAsset(id);
  CalculateDepArray all = loadRegister();
  all.erase(all.begin() + 1);
  site.pointers.clear();
  trace.take();
  screens.view->events.DeleteButtonClick(all, 1);
  EXPECT_THAT(site.pointers, ElementsAre(Pointer::hourglass, Pointer::normal));
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcView1.Hide"));
  EXPECT_TRUE(current().RecNew());
  EXPECT_EQ(current().RecIndex(), "0");
  ASSERT_EQ(table()->Count(), 3);
  all = loadRegister();
  EXPECT_EQ(all[0]->AssetID(), "A1");
  EXPECT_EQ(all[1]->AssetID(), "A3");
  EXPECT_EQ(all[1]->RecIndex(), "2");
  screens.view->events.ResizedDisplay();
  EXPECT_EQ(container.visibleScreen(), screens.view);
}

TEST_F(RegisterData, EmptiesTheTableWithItsLastAsset) {
  saveAsset("A1");
  CalculateDepArray none(2);
  screens.view->events.DeleteButtonClick(none, 1);
  EXPECT_EQ(table()->Count(), 0);
  CalculateDepArray all(2);
  std::int16_t start = 1;
  double years = 2;
  std::int16_t assets = 3;
  screens.view->events.GetCalcDepAll(all, start, years, assets);
  EXPECT_EQ(all[0], nullptr);
  saveAsset("B1");
  EXPECT_EQ(table()->Count(), 2) << "the first save makes the table anew";
}

struct Leaving : Container {
  const MessageBox question{
      "You have not saved your changes to this asset. Would you like to save your changes now?",
      BoxButtons::yesNo, "Save Changes"};
};

TEST_F(Leaving, AsksNothingWhereNothingChanged) {
  user.leave();
  EXPECT_THAT(site.boxes, IsEmpty());
}

TEST_F(Leaving, SavesFromTheEntryFormWithAWarning) {
  saveAsset("A1");
  edit(1);
  current().AssetBasis(money("4000"));
  current().AssetName("Saw");
  const CalculateDepPtr before = container.CurrentRecord();
  site.answers = {BoxAnswer::yes};
  user.leave();
  EXPECT_THAT(site.takeBoxes(),
              ElementsAre(question, MessageBox{warningAbout("basis of this asset"), BoxButtons::ok,
                                               "Recalculate"}));
  EXPECT_EQ(storedName(1), "Saw");
  EXPECT_NE(container.CurrentRecord(), before) << "read back from the store";
  EXPECT_EQ(current().AssetName(), "Saw");
}

TEST_F(Leaving, SavesFromTheComparisonWithoutOne) {
  saveAsset("A1");
  edit(1);
  screens.ctl->events.ButtonClick("Calc");
  current().AssetBasis(money("4000"));
  site.answers = {BoxAnswer::yes};
  user.leave();
  EXPECT_THAT(site.takeBoxes(), ElementsAre(question));
  EXPECT_EQ(loadRegister()[0]->AssetBasis(), money("4000"));
}

TEST_F(Leaving, GivesANewRecordItsIndex) {
  current().AssetName("Saw");
  current().AssetStartDate(Date::strict(2020, 1, 1));
  current().FYEnd(Date::strict(2020, 12, 31));
  site.answers = {BoxAnswer::yes};
  user.leave();
  EXPECT_EQ(current().RecIndex(), "1");
  EXPECT_EQ(storedName(1), "Saw");
}

TEST_F(Leaving, KeepsTheRecordOnNo) {
  current().AssetName("Saw");
  const CalculateDepPtr before = container.CurrentRecord();
  site.answers = {BoxAnswer::no};
  user.leave();
  EXPECT_THAT(site.boxes, ElementsAre(question));
  EXPECT_EQ(container.CurrentRecord(), before);
  EXPECT_EQ(table()->Count(), 1);
}

TEST_F(Leaving, AsksNothingWithoutACompanyFile) {
  current().AssetName("Saw");
  application->close();
  user.leave();
  EXPECT_THAT(site.boxes, IsEmpty());
}

TEST_F(Leaving, EndsThroughItsTrap) {
  current().AssetName("Saw");
  user.leave();  // no answer is queued: the box itself fails
  EXPECT_THAT(reports,
              ElementsAre("DepCalc::lostfocus Error#5: Invalid procedure call or argument"));
}

struct Popups : Container {};

TEST_F(Popups, ShowTheTopicJustAskedFor) {
  std::string shown;
  const Observation observation = screens.popup1->observe([&](Aspect aspect) {
    if (aspect != Aspect::visible || !screens.popup1->visible()) return;
    screens.popup1->events.GetHelpTopic(shown);
  });
  screens.ctl->events.HelpClick("Basis");
  EXPECT_EQ(shown, "Basis");
  screens.view->events.HelpClick("MainHelp");
  EXPECT_EQ(shown, "MainHelp");
  screens.display->events.HelpClick("Total");
  EXPECT_EQ(shown, "Total");
  container.ShowMainHelp();
  EXPECT_EQ(shown, "MainHelp");
}

TEST_F(Popups, OpenInFrontAndAreShownAnewEachTime) {
  screens.ctl->events.HelpClick("ID");
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcPopup1.Show"));
  screens.ctl->events.HelpClick("Name");
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcPopup1.Hide", "DepCalcPopup1.Show"));
  EXPECT_GT(screens.popup1->stacking(), screens.popup2->stacking());
  EXPECT_EQ(container.visibleScreen(), screens.ctl);
}

TEST_F(Popups, StandAtTheirFirstPlace) {
  screens.ctl->events.HelpClick("Salvage");
  EXPECT_EQ(screens.popup1->top(), 1440);
  screens.view->events.HelpClick("Total");
  EXPECT_EQ(screens.popup1->top(), 1440);
  screens.display->events.HelpClick("Step");
  EXPECT_EQ(screens.popup1->top(), 1440);
  screens.display->events.HelpClick("Total");
  EXPECT_EQ(screens.popup1->top(), 6500 - 2000);
}

TEST_F(Popups, MoveToTheirTopicOnceTheyHaveTheirSize) {
  const std::vector<std::pair<std::string, int>> tops = {
      {"MainHelp", 280}, {"ID", 1630},         {"Name", 2000},    {"Serial", 2360},
      {"Dept", 2720},    {"Basis", 2255},      {"Salvage", 3520}, {"StartDate", 3080},
      {"ProdCap", 2750}, {"FY", 3440},         {"Recovery", 637}, {"Step1", 750},
      {"Total", 6300},   {"Convention", 1440}, {"Step", 1440},    {"total", 1440},
      {"", 1440}};
  screens.popup1->setSize(2500, 200);
  for (const auto& [topic, top] : tops) {
    screens.ctl->events.HelpClick(topic);
    screens.popup1->events.ResizedDisplay();
    EXPECT_EQ(screens.popup1->top(), top) << topic;
  }
}

TEST_F(Popups, StandBesideTheFormWhateverScreenShows) {
  const int beside = 8000 - 25 * 15;
  for (const eMyView view : {emv_Calc, emv_Display, emv_ViewAll}) {
    container.ShowView(view);
    screens.ctl->events.HelpClick("ID");
    screens.popup1->events.ResizedDisplay();
    EXPECT_EQ(screens.popup1->left(), beside) << view;
  }
}

TEST_F(Popups, OpenLinksOfTheFirstInTheSecond) {
  screens.ctl->events.HelpClick("MainHelp");
  screens.popup1->events.ResizedDisplay();
  trace.take();
  screens.popup1->events.OpenNewMe("Delete");
  EXPECT_THAT(trace.take(), ElementsAre("DepCalcPopup2.Show"));
  std::string topic;
  screens.popup2->events.GetHelpTopic(topic);
  EXPECT_EQ(topic, "Delete");
  EXPECT_GT(screens.popup2->stacking(), screens.popup1->stacking());
  screens.popup2->events.ResizedDisplay();
  EXPECT_EQ(screens.popup2->left(), screens.popup1->left());
  EXPECT_GT(screens.popup2->top(), screens.popup1->top() + screens.popup1->height())
      << "it covers no link of the first";
  trace.take();
  screens.popup2->events.OpenNewMe("Print");
  EXPECT_THAT(trace.take(), IsEmpty()) << "nothing opens from the second";
  screens.popup2->events.GetHelpTopic(topic);
  EXPECT_EQ(topic, "Delete");
}

TEST_F(Popups, ComeForwardAndClose) {
  screens.ctl->events.HelpClick("MainHelp");
  screens.popup1->events.OpenNewMe("Delete");
  screens.popup1->events.FrontMe();
  EXPECT_GT(screens.popup1->stacking(), screens.popup2->stacking());
  screens.popup2->events.FrontMe();
  EXPECT_GT(screens.popup2->stacking(), screens.popup1->stacking());
  screens.popup1->events.CloseMe();
  EXPECT_FALSE(screens.popup1->visible());
  EXPECT_TRUE(screens.popup2->visible());
  screens.popup2->events.CloseMe();
  EXPECT_FALSE(screens.popup2->visible());
}

}  // namespace
}  // namespace depcalc
