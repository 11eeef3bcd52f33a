// The Asset menu and the keys of the register.
#include <QMenu>
#include <QMenuBar>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AssetMenu : WindowTest {
  AssetMenu() { newCompany(); }

  /// Of this menu: another one is called as one of its items.
  QAction& action(const char* text) {
    for (QAction* menu : window.menuBar()->actions()) {
      if (menu->text().remove(u'&') != QStringLiteral("Asset")) continue;
      for (QAction* found : menu->menu()->actions()) {
        if (found->text().remove(u'&') == QString::fromUtf8(text)) return *found;
      }
    }
    return WindowTest::action(text);
  }
  std::vector<std::string> enabled() {
    std::vector<std::string> texts;
    for (const char* text : {"New", "Edit", "Delete", "Calculate", "Save"}) {
      if (action(text).isEnabled()) texts.emplace_back(text);
    }
    return texts;
  }
  void trigger(const char* text) {
    action(text).trigger();
    settle();
  }
  void fillTruck() {
    click(form().IDText);
    enterAsset({"TRK-014", "Delivery truck", "", "", "9/15/2023", "July", "5", "Half Year", "38450",
                "4000", ""});
  }
  void saveTruck() {
    fillTruck();
    trigger("Calculate");
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
    trigger("Save");
    ASSERT_EQ(shown(), "DepCalcView1");
  }
};

TEST_F(AssetMenu, HasTheButtonsOfTheScreenThatShows) {
  EXPECT_THAT(enabled(), ElementsAre("New", "Calculate", "Save"));
  fillTruck();
  trigger("Calculate");
  EXPECT_THAT(enabled(), ElementsAre("Edit", "Save"));
  trigger("Edit");
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "TRK-014");
  trigger("Save");
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_THAT(enabled(), ElementsAre("New", "Edit", "Delete"));
  window.closeCompany();
  EXPECT_THAT(enabled(), IsEmpty());
}

TEST_F(AssetMenu, DoesWhatTheButtonsDoAndNoMore) {
  click(form().IDText);
  type("A1");
  trigger("Calculate");
  EXPECT_EQ(boxes.take().size(), 1U) << "the calculator asks for what is missing";
  EXPECT_EQ(shown(), "DepCalcCtl1");
  saveTruck();
  clickCell(0, 0);  // the captions: no asset
  trigger("Edit");
  EXPECT_THAT(boxes.take(),
              ElementsAre("Edit Assets | Please select an asset to edit by clicking any cell in "
                          "the column."));
  clickCell(0, 1);
  boxes.answers = {QMessageBox::No};
  trigger("Delete");
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(calculator().assetCount(), 1);
  trigger("New");
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "");
}

TEST_F(AssetMenu, CtrlSSavesTheAsset) {
  fillTruck();
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(calculator().assetCount(), 1);
}

TEST_F(AssetMenu, EnterEditsTheSelectedAssetAndSpaceSelectsOnly) {
  saveTruck();
  clickCell(3, 1);
  key(Qt::Key_Space);
  EXPECT_EQ(shown(), "DepCalcView1");
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "TRK-014");
}

TEST_F(AssetMenu, EditsTheSelectedAssetAlsoAfterARestart) {
  fillTruck();
  trigger("Save");  // without comparing, the calculator itself would open a blank form
  window.closeCompany();
  ASSERT_TRUE(window.openCompany(path()));
  settle();
  for (const bool by_menu : {true, false}) {
    clickCell(0, 1);
    by_menu ? trigger("Edit") : key(Qt::Key_Return);
    ASSERT_EQ(shown(), "DepCalcCtl1");
    EXPECT_EQ(form().IDText.text(), "TRK-014") << by_menu;
    click(form().ViewAllLabel);
    ASSERT_EQ(shown(), "DepCalcView1");
  }
}

TEST_F(AssetMenu, ADoubleClickEditsTheAssetUnderIt) {
  saveTruck();
  auto& view = dynamic_cast<QTableView&>(widget(assets().AssetViewTable));
  const QRect cell = view.visualRect(view.model()->index(5, 1));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  settle();
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "TRK-014");
}

TEST_F(AssetMenu, DeleteDeletesInTheRegisterAndACharacterInAField) {
  click(form().IDText);
  type("A1");
  key(Qt::Key_Home);
  key(Qt::Key_Delete);
  EXPECT_EQ(form().IDText.text(), "1");
  key(Qt::Key_Delete);
  saveTruck();
  clickCell(0, 1);
  boxes.answers = {QMessageBox::Yes};
  key(Qt::Key_Delete);
  EXPECT_EQ(calculator().assetCount(), 0);
}

}  // namespace
}  // namespace depcalc::testing
