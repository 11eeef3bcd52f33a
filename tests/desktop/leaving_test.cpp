// Whatever takes the calculator, its company or its mode away asks about unsaved changes first, and
// has a way back.
#include <QMessageBox>

#include "DepCalc/asset_store.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string question =
    "Save Changes | You have not saved your changes to this asset. Would you like to save your "
    "changes now?";

struct Leaving : WindowTest {
  static constexpr int ways = 7;

  Leaving() {
    EXPECT_TRUE(window.createCompany(path("second"), {"Second", 1}));
    newCompany();
  }

  void leave(int way) {
    switch (way) {
      case 0:
        window.closeCompany();
        break;
      case 1:
        window.createCompany(path("other"), {"Other", 1});
        break;
      case 2:
        action("Switch to Multi-user Mode").trigger();
        break;
      case 3:
        window.restoreBackup({"/nowhere", QDateTime(), 0});
        break;
      case 4:
        action("Depreciation Calculator").trigger();
        break;
      case 5:
        window.close();
        break;
      case 6:
        window.openCompany(path("second"));
        break;
    }
    settle();
  }
  /// The boxes that are about the changes.
  int questions() {
    int count = 0;
    for (const std::string& box : boxes.take()) count += box.starts_with("Save Changes") ? 1 : 0;
    return count;
  }
  /// The first asset that is saved.
  CalculateDepPtr saved() {
    companies.companies.at(path().toStdString()).file->reopen();
    StoreState state;
    state.m_orvcf = companies.companies.at(path().toStdString()).file;
    AssetStore store(state, [] { return Date::strict(2024, 6, 15); });
    store.open();
    return store.ReadData(1);
  }
};

struct WaysOut : Leaving, ::testing::WithParamInterface<int> {
  /// Nothing has happened but the question.
  void expectStayed(const std::string& screen) {
    ASSERT_NE(window.company(), nullptr);
    EXPECT_EQ(window.company()->path(), path().toStdString());
    EXPECT_FALSE(window.company()->info().multi_user);
    ASSERT_NE(window.calculator(), nullptr);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(shown(), screen);
    EXPECT_EQ(calculator().container().CurrentRecord()->AssetID(), "TRK-014");
    EXPECT_EQ(calculator().assetCount(), 0);
    EXPECT_FALSE(companies.companies.contains(path("other").toStdString()));
  }
};

TEST_P(WaysOut, AskWhileAnAssetIsEntered) {
  enterTruck();
  boxes.answers = {QMessageBox::No};
  leave(GetParam());
  EXPECT_EQ(questions(), 1);
}

TEST_P(WaysOut, AskWhileMethodsAreCompared) {
  compareTruck();
  boxes.answers = {QMessageBox::No};
  leave(GetParam());
  EXPECT_EQ(questions(), 1);
}

TEST_P(WaysOut, SaveOnYes) {
  enterTruck();
  boxes.answers = {QMessageBox::Yes};
  leave(GetParam());
  EXPECT_EQ(questions(), 1);
  EXPECT_EQ(saved()->AssetID(), "TRK-014");
}

TEST_P(WaysOut, AreClosedByCancelEscapeAndTheCross) {
  enterTruck();
  goTo("NameText");
  const InputControl* const field = calculator().stage().focused();
  boxes.answers = {QMessageBox::Cancel};
  leave(GetParam());
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  expectStayed("DepCalcCtl1");
  onDialog([this] { leave(GetParam()); },
           [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  expectStayed("DepCalcCtl1");
  onDialog([this] { leave(GetParam()); }, [](QDialog& box) { box.close(); });
  expectStayed("DepCalcCtl1");
  EXPECT_EQ(form().BasisText.text(), "38,450.00");
  EXPECT_EQ(calculator().stage().focused(), field);
  EXPECT_TRUE(widget(*field).hasFocus());
}

TEST_P(WaysOut, AreClosedByCancelWhileMethodsAreCompared) {
  compareTruck();
  boxes.answers = {QMessageBox::Cancel};
  leave(GetParam());
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  expectStayed("DepCalcDisplayCtl1");
}

TEST_P(WaysOut, AreClosedByAFieldThatRefusesItsText) {
  enterTruck();
  goTo("StartDateText");
  key(Qt::Key_A, Qt::ControlModifier);
  type("99/99/2020");
  leave(GetParam());
  EXPECT_THAT(boxes.take(), ElementsAre("Placed-in-service Date | Please enter a valid date."));
  expectStayed("DepCalcCtl1");
  EXPECT_EQ(focused(), "StartDateText");
}

/// There the current record is blank and carries the selected asset's index, after an opening.
TEST_P(WaysOut, AskNothingOnTheRegister) {
  saveTruck();
  window.closeCompany();
  ASSERT_TRUE(window.openCompany(path()));
  settle();
  clickCell(0, 1);
  ASSERT_TRUE(calculator().container().CheckforChanges());
  leave(GetParam());
  EXPECT_EQ(questions(), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, WaysOut, ::testing::Range(0, Leaving::ways));

TEST_F(Leaving, WhatWasTypedLastIsSaved) {
  goTo("BasisText");
  type("1234.5");
  boxes.answers = {QMessageBox::Yes};
  window.closeCompany();
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  EXPECT_EQ(saved()->AssetBasis(), Currency::fromTicks(12'345'000));
}

TEST_F(Leaving, WhatWasTypedLastStaysWhereLeavingIsCancelled) {
  goTo("BasisText");
  type("1234.5");
  boxes.answers = {QMessageBox::Cancel, QMessageBox::No};
  window.closeCompany();
  settle();
  EXPECT_EQ(form().BasisText.text(), "1,234.50");
  EXPECT_EQ(focused(), "BasisText");
  window.closeCompany();
  EXPECT_EQ(window.company(), nullptr);
  EXPECT_THAT(boxes.take(), ElementsAre(question, question)) << "each time";
}

TEST_F(Leaving, AnAnswerStandsUntilSomethingIsDone) {
  fill("A-1");
  boxes.answers = {QMessageBox::No, QMessageBox::Cancel};
  EXPECT_TRUE(window.mayLeave());
  EXPECT_TRUE(window.mayLeave());
  EXPECT_THAT(boxes.take(), ElementsAre(question));
  EXPECT_EQ(form().IDText.text(), "A-1");
  settle();
  fill("Lathe");
  EXPECT_FALSE(window.mayLeave());
  EXPECT_THAT(boxes.take(), ElementsAre(question));
}

TEST_F(Leaving, NothingIsAskedWhereNothingIsUnsaved) {
  EXPECT_TRUE(window.mayLeave());
  leave(4);
  EXPECT_TRUE(window.close());
  EXPECT_THAT(boxes.take(), IsEmpty());
}

}  // namespace
}  // namespace depcalc::testing
