// What the register does when it is shown, clicked and sized.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/register_fixture.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Log;
using testing::makeAsset;

struct RegisterActions : ::testing::Test, testing::RegisterSurroundings {
  Reports reports;
};

TEST_F(RegisterActions, AsksForEverythingInItsOrderWhenItIsShownAndNothingMoreWhenPainted) {
  container.assets = {makeAsset("A")};
  container.on_reading = [&] {
    EXPECT_FALSE(table.visible());
    EXPECT_FALSE(table.redraw());
  };
  view.show();
  EXPECT_TRUE(table.visible());
  EXPECT_TRUE(table.redraw());
  EXPECT_THAT(takeLog(), ElementsAre("ShowCover", "hourglass", "GetCalcDepAll", "GetCalcDep",
                                     "pointer", "ResizedDisplay", "HideCover"));
  stage.pumpPaint();
  stage.expose();
  stage.pumpPaint();
  EXPECT_THAT(takeLog(), IsEmpty());
  view.hide();
  view.show();
  EXPECT_EQ(takeLog().size(), 7U) << "hidden, it forgets";
}

TEST_F(RegisterActions, OffersTheContainerTwoEmptySlotsAndPlaceholders) {
  site.current_day = Date::strict(2031, 1, 1);
  Log other_log;
  testing::RegisterContainer other(stage, other_log);
  other.view.show();
  EXPECT_THAT(other.given_slots, ElementsAre(nullptr, nullptr));
  EXPECT_EQ(other.given_year, 2031);
  EXPECT_EQ(other.given_assets, 2);
}

TEST_F(RegisterActions, ShowsAMessageInsteadOfAnEmptyTable) {
  showView();
  const auto visible = [&] {
    std::vector<std::string> names;
    for (const Control* child : view.children()) {
      if (child->visible()) names.push_back(child->name());
    }
    return names;
  };
  EXPECT_THAT(visible(), ElementsAre("BackShape", "PageShape", "CalcDepLabel", "ViewAllLabel",
                                     "HelpLabel", "TitleLabel", "NoAssetsLabel", "NewButton"));
  container.assets = {makeAsset("A")};
  showView();
  EXPECT_THAT(visible(),
              ElementsAre("BackShape", "PageShape", "CalcDepLabel", "ViewAllLabel", "HelpLabel",
                          "TitleLabel", "InstrLabel", "NewButton", "EditButton", "DeleteButton",
                          "PrintButton", "AssetViewTable"));
  container.assets.clear();
  showView();
  EXPECT_FALSE(table.visible());
  EXPECT_TRUE(view.NoAssetsLabel.visible());
}

TEST_F(RegisterActions, ReadsAsDefined) {
  EXPECT_EQ(view.TitleLabel.text(), "View all assets:");
  EXPECT_EQ(view.InstrLabel.text(), "Click any cell to select an asset to edit or delete.");
  EXPECT_EQ(view.NoAssetsLabel.text(),
            "You have no assets to display, click the New button to enter your assets.");
  EXPECT_EQ(view.ViewAllLabel.text(), "  View All   Assets  ");
  EXPECT_EQ(view.CalcDepLabel.text(), "Calculate Depreciation");
  EXPECT_EQ(view.HelpLabel.text(), "Using this calculator");
}

TEST_F(RegisterActions, IsColouredWithThePalettesNearest) {
  EXPECT_EQ(view.ViewAllLabel.foreColour().value(), 0x02E8F7FFU);
  EXPECT_EQ(view.ViewAllLabel.backColour().value(), 0x02000066U);
  EXPECT_EQ(view.CalcDepLabel.foreColour().value(), 0x02000066U);
  EXPECT_EQ(view.CalcDepLabel.backColour().value(), 0x02A8C5E1U);
  for (const Label* label : {&view.HelpLabel, &view.TitleLabel, &view.InstrLabel}) {
    EXPECT_EQ(label->foreColour().value(), 0x02000066U) << label->name();
  }
  EXPECT_EQ(view.BackShape.foreColour().value(), 0x02000066U);
  EXPECT_EQ(view.BackShape.backColour().value(), 0x02FFFFFFU);
  for (const PictureBox* box : {&view.Picture1, &view.Picture2, &view.Picture3, &view.Picture4}) {
    EXPECT_EQ(box->backColour().value(), 0x02FFFFFFU) << box->name();
  }
  int applied = 0;
  stage.setHostPalette([&](UserControl&) { ++applied; });
  testing::RegisterContainer another(stage, log);
  EXPECT_EQ(applied, 1) << "and it takes the host's palette";
}

TEST_F(RegisterActions, SelectsTheAssetOfTheColumnClicked) {
  container.assets = {makeAsset("A"), makeAsset("B")};
  container.current->RecIndex("9");
  showView();
  EXPECT_EQ(table.column(), 0) << "nothing is selected at first";
  EXPECT_EQ(container.current->RecIndex(), "9");
  user.clickCell(table, 7, 2);
  EXPECT_EQ(container.current->RecIndex(), "2");
  user.clickCell(table, 0, 0);
  EXPECT_EQ(container.current->RecIndex(), "2") << "the captions are no asset";
  user.arrow(Direction::right);
  EXPECT_EQ(container.current->RecIndex(), "1") << "the keyboard selects as well";
  table.setColumn(2);
  EXPECT_EQ(container.current->RecIndex(), "1") << "only a click does";
  showView();
  EXPECT_EQ(table.column(), 0);
}

TEST_F(RegisterActions, ReportsASelectionWithoutACurrentRecord) {
  container.assets = {makeAsset("A")};
  container.current = nullptr;
  showView();
  user.clickCell(table, 3, 1);
  EXPECT_THAT(reports.all(),
              ElementsAre("DepCalcView::AssetViewTable_Click Error#91: Object variable or With "
                          "block variable not set"));
}

TEST_F(RegisterActions, ShowsThePressedPictureWhileTheMouseIsDown) {
  container.assets = {makeAsset("A")};
  showView();
  site.answers = {BoxAnswer::no};
  const struct {
    PicturePair& button;
    const char* normal;
    const char* pressed;
  } buttons[] = {{view.NewButton, "NewButton", "NewButtonP"},
                 {view.EditButton, "EditButton", "EditButtonP"},
                 {view.DeleteButton, "DeleteButton", "DeleteButtonP"},
                 {view.PrintButton, "PrintButton", "PrintButtonP"}};
  for (const auto& [button, normal, pressed] : buttons) {
    EXPECT_EQ(button.normal.name(), normal);
    EXPECT_EQ(button.pressed.name(), pressed);
    takeLog();
    EXPECT_FALSE(button.pressed.visible());
    user.mouseDown(button.normal);
    EXPECT_TRUE(button.pressed.visible()) << normal;
    EXPECT_THAT(takeLog(), IsEmpty()) << "the press alone does nothing";
    user.mouseUp(nullptr);
    EXPECT_FALSE(button.pressed.visible()) << normal;
    EXPECT_THAT(takeLog(), IsEmpty()) << "nor does a release elsewhere";
    user.click(button.normal);
    EXPECT_FALSE(button.pressed.visible()) << normal;
    EXPECT_FALSE(takeLog().empty()) << normal;
  }
}

TEST_F(RegisterActions, StartsANewAssetFromButtonAndTabAndReadsAgainAfterwards) {
  container.assets = {makeAsset("A")};
  for (Control* starter :
       {static_cast<Control*>(&view.NewButton.normal), static_cast<Control*>(&view.CalcDepLabel)}) {
    showView();
    takeLog();
    user.click(*starter);
    EXPECT_THAT(takeLog(), ElementsAre("ButtonClick New"));
    stage.expose();
    stage.pumpPaint();
    EXPECT_EQ(takeLog().size(), 7U);
  }
}

TEST_F(RegisterActions, EditsTheSelectedAssetAndReadsAgainAfterwards) {
  container.assets = {makeAsset("A")};
  showView();
  user.clickCell(table, 5, 1);
  takeLog();
  user.click(view.EditButton.normal);
  EXPECT_THAT(takeLog(), ElementsAre("ButtonClick Edit"));
  stage.expose();
  stage.pumpPaint();
  EXPECT_EQ(takeLog().size(), 7U);
}

TEST_F(RegisterActions, WantsASelectionBeforeItEditsOrDeletes) {
  container.assets = {makeAsset("A")};
  for (const bool clicked : {false, true}) {
    showView();
    if (clicked) user.clickCell(table, 5, 0);
    takeLog();
    user.click(view.EditButton.normal);
    user.click(view.DeleteButton.normal);
    EXPECT_THAT(
        site.takeBoxes(),
        ElementsAre(
            MessageBox{"Please select an asset to edit by clicking any cell in the column.",
                       BoxButtons::ok, "Edit Assets"},
            MessageBox{"Please select an asset to delete by clicking any cell in the column.",
                       BoxButtons::ok, "Delete an Asset"}));
    stage.expose();
    stage.pumpPaint();
    EXPECT_THAT(takeLog(), ElementsAre("box Edit Assets", "box Delete an Asset"))
        << "nothing else happens, and nothing is read again";
  }
}

TEST_F(RegisterActions, OpensTheMainHelp) {
  container.assets = {makeAsset("A")};
  showView();
  takeLog();
  user.click(view.HelpLabel);
  user.click(view.ViewAllLabel);
  user.click(view.TitleLabel);
  EXPECT_THAT(takeLog(), ElementsAre("HelpClick MainHelp"));
}

TEST_F(RegisterActions, AsksBeforeItDeletes) {
  container.assets = {makeAsset("A"), makeAsset("TRK 014")};
  showView();
  user.clickCell(table, 5, 2);
  takeLog();
  site.answers = {BoxAnswer::no};
  user.click(view.DeleteButton.normal);
  EXPECT_THAT(site.takeBoxes(),
              ElementsAre(MessageBox{"Are you sure you want to delete asset TRK 014?",
                                     BoxButtons::yesNo, "Delete an Asset"}));
  stage.expose();
  stage.pumpPaint();
  EXPECT_THAT(takeLog(), ElementsAre("box Delete an Asset"));
}

TEST_F(RegisterActions, HandsOverTheArrayWithoutTheDeletedAsset) {
  for (int deleted = 0; deleted < 4; ++deleted) {
    container.assets = {makeAsset("A"), makeAsset("B"), makeAsset("C"), makeAsset("D")};
    showView();
    user.clickCell(table, 0, deleted + 1);
    takeLog();
    site.answers = {BoxAnswer::yes};
    user.click(view.DeleteButton.normal);
    EXPECT_THAT(takeLog(), ElementsAre("box Delete an Asset", "hourglass",
                                       "DeleteButtonClick " + std::to_string(deleted), "pointer",
                                       "ResizedDisplay"));
    CalculateDepArray expected = container.assets;
    expected.erase(expected.begin() + deleted);
    expected.emplace_back();
    EXPECT_EQ(container.deleted_from, expected) << "one empty slot stays behind the assets";
    container.assets = {makeAsset("E"), makeAsset("F"), makeAsset("G")};
    stage.expose();
    stage.pumpPaint();
    EXPECT_EQ(table.text(0, 3), "G") << "the next paint reads the register again";
  }
}

TEST_F(RegisterActions, DeletesTheOnlyAssetAsNumberOne) {
  container.assets = {makeAsset("A")};
  showView();
  user.clickCell(table, 0, 1);
  takeLog();
  site.answers = {BoxAnswer::yes};
  user.click(view.DeleteButton.normal);
  EXPECT_THAT(takeLog(), ElementsAre("box Delete an Asset", "hourglass", "DeleteButtonClick 1",
                                     "pointer", "ResizedDisplay"));
  EXPECT_THAT(container.deleted_from, ElementsAre(nullptr, nullptr));
}

TEST_F(RegisterActions, ReadsTwiceWhenTheContainerHidesItForADeletionAndShowsItAgain) {
  container.assets = {makeAsset("A"), makeAsset("B")};
  showView();
  user.clickCell(table, 0, 1);
  takeLog();
  container.on_delete = [&] {
    container.assets.erase(container.assets.begin());
    view.hide();
  };
  container.on_resized = [&] { view.show(); };
  site.answers = {BoxAnswer::yes};
  user.click(view.DeleteButton.normal);
  const Log reading = {"ShowCover", "hourglass",      "GetCalcDepAll", "GetCalcDep",
                       "pointer",   "ResizedDisplay", "HideCover"};
  Log expected = {"box Delete an Asset", "hourglass", "DeleteButtonClick 0", "pointer",
                  "ResizedDisplay"};
  expected.insert(expected.end(), reading.begin(), reading.end());
  EXPECT_EQ(takeLog(), expected) << "shown while the controls are being arranged";
  stage.pumpPaint();
  EXPECT_EQ(takeLog(), reading) << "and once more at the paint that follows";
  EXPECT_EQ(table.text(0, 1), "B");
  EXPECT_EQ(table.columns(), 2);
}

TEST_F(RegisterActions, StopsADeletionAtAnErrorAndLeavesThePointerAsItIs) {
  container.assets = {makeAsset("A"), makeAsset("B")};
  showView();
  user.clickCell(table, 0, 1);
  takeLog();
  container.on_delete = [] { throw RuntimeError::overflow(); };
  site.answers = {BoxAnswer::yes};
  user.click(view.DeleteButton.normal);
  EXPECT_THAT(takeLog(), ElementsAre("box Delete an Asset", "hourglass", "DeleteButtonClick 0"));
  EXPECT_THAT(reports.all(),
              ElementsAre("DepCalcView::AssetViewTable_DeleteButton_MouseUp Error#6: Overflow"));
}

TEST_F(RegisterActions, SizesTheTableToItsCellsAndEverythingElseAroundIt) {
  const int pixel = 15;
  for (const int count : {1, 3, 9, 40}) {
    for (const double span : {0.0, 6.0, 50.0}) {
      container.assets.assign(static_cast<std::size_t>(count), makeAsset("A"));
      container.years = span;
      showView();
      EXPECT_EQ(table.width(), count * 1200 + 1800 + 4 * pixel);
      EXPECT_EQ(table.height(), (13 + static_cast<int>(span)) * 450 + 3 * pixel);
      EXPECT_EQ(view.BackShape.width(), view.width() - 2 * pixel);
      EXPECT_EQ(view.BackShape.height(), view.height() - 2 * pixel);
      EXPECT_GT(view.PageShape.left() + view.PageShape.width(), table.left() + table.width());
      EXPECT_GT(view.PageShape.top() + view.PageShape.height(), table.top() + table.height());
      EXPECT_GT(view.width(), view.PageShape.left() + view.PageShape.width());
      EXPECT_GT(view.height(), view.PageShape.top() + view.PageShape.height());
      EXPECT_GT(table.top(), view.NewButton.normal.top() + view.NewButton.normal.height());
    }
  }
}

TEST_F(RegisterActions, KeepsItsControlsApart) {
  container.assets = {makeAsset("A")};
  showView();
  const auto& children = view.children();
  for (std::size_t i = 2; i < children.size(); ++i) {
    for (std::size_t j = i + 1; j < children.size(); ++j) {
      if (!children[i]->visible() || !children[j]->visible()) continue;
      const Place& a = children[i]->place();
      const Place& b = children[j]->place();
      const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                         a.top + a.height <= b.top || b.top + b.height <= a.top;
      EXPECT_TRUE(apart) << children[i]->name() << " and " << children[j]->name();
    }
  }
}

TEST_F(RegisterActions, IsArrangedAgainWhenResizedButNotByItsOwnArranging) {
  container.assets = {makeAsset("A")};
  showView();
  const Place arranged = view.place();
  takeLog();
  view.setSize(500, 500);
  EXPECT_THAT(takeLog(), ElementsAre("ResizedDisplay"));
  EXPECT_EQ(view.place(), arranged);
}

}  // namespace
}  // namespace depcalc
