// Edit opens the asset that is selected, also where the calculator alone would open a blank form.
#include "host/unit_of_work.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::IsEmpty;

struct EditHelp : WindowTest {
  EditHelp() { newCompany(); }

  void act(const std::function<void(User&)>& action) {
    calculator().surface().act(action);
    settle();
  }
  void clickOn(Control& control) {
    act([&](User& user) { user.click(control); });
  }
  void put(TextBox& field, const char* text) {
    act([&](User& user) {
      ASSERT_TRUE(user.moveFocus(field));
      user.paste(text);
    });
  }
  /// On the form, as it comes up for a new asset.
  void fillForm(const char* id, int convention) {
    put(form().IDText, id);
    put(form().NameText, "Lathe");
    put(form().StartDateText, "7/1/2023");
    put(form().DRecoveryText, "5");
    put(form().BasisText, "10000");
    put(form().SalvageText, "1000");
    put(form().ProdCapText, "500");
    act([&](User& user) { user.chooseItem(form().DConvList, convention); });
  }
  void saveWithoutComparing(const char* id, int convention = 0) {
    fillForm(id, convention);
    clickOn(form().SaveButton.normal);
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  void saveWith(OptionButton DepCalcDisplayCtl::*method, const char* id, int convention) {
    fillForm(id, convention);
    clickOn(form().CalcButton.normal);
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
    clickOn(comparison().*method);
    clickOn(comparison().SaveButton.normal);
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  void restart() {
    window.closeCompany();
    ASSERT_TRUE(window.openCompany(path()));
    settle();
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  bool wouldOpenABlankForm() { return calculator().container().CurrentRecord()->RecNew(); }
  std::uint64_t revision() { return window.company()->file()->unitOfWork()->revision(); }
  void expectFormOf(const char* id, int convention) {
    ASSERT_EQ(shown(), "DepCalcCtl1");
    EXPECT_EQ(form().IDText.text(), id);
    EXPECT_EQ(form().NameText.text(), "Lathe");
    EXPECT_EQ(form().StartDateText.text(), "07/01/2023");
    EXPECT_EQ(form().DRecoveryText.text(), "5");
    EXPECT_EQ(form().DConvList.index(), convention);
    EXPECT_EQ(form().BasisText.text(), "10,000.00");
    EXPECT_EQ(form().SalvageText.text(), "1,000.00");
    EXPECT_EQ(form().ProdCapText.text(), "500");
    EXPECT_EQ(focused(), "IDText");
    EXPECT_THAT(boxes.take(), IsEmpty());
  }
};

constexpr int conventions = 5;

TEST_F(EditHelp, OpensAnAssetOfEveryKindAfterARestart) {
  using Screen = DepCalcDisplayCtl;
  constexpr OptionButton Screen::*methods[] = {nullptr, &Screen::SLOption, &Screen::SYDOption,
                                               &Screen::DDBOption, &Screen::UoPOption};
  int company = 0;
  int helped = 0;
  for (int convention = 0; convention < conventions; ++convention) {
    for (OptionButton Screen::*const method : methods) {
      SCOPED_TRACE(++company);
      newCompany(std::to_string(company).c_str());
      method == nullptr ? saveWithoutComparing("A-1", convention)
                        : saveWith(method, "A-1", convention);
      window.closeCompany();
      ASSERT_TRUE(window.openCompany(path(std::to_string(company).c_str())));
      settle();
      const std::uint64_t before = revision();
      clickCell(3, 1);
      helped += wouldOpenABlankForm() ? 1 : 0;
      click(assets().EditButton.normal);
      expectFormOf("A-1", convention);
      EXPECT_EQ(revision(), before) << "nothing is written";
    }
  }
  EXPECT_GT(helped, conventions) << "those saved without comparing, and those of full years";
  EXPECT_LT(helped, company) << "where the calculator needs no help";
}

TEST_F(EditHelp, OpensTheAssetThatIsSelected) {
  saveWithoutComparing("A-1", 1);
  clickOn(assets().NewButton.normal);
  saveWithoutComparing("A-2", 2);
  clickOn(assets().NewButton.normal);
  saveWithoutComparing("A-3", 3);
  restart();
  for (const int column : {2, 3, 1}) {
    restart();
    clickCell(12, column);
    ASSERT_TRUE(wouldOpenABlankForm());
    key(Qt::Key_E, Qt::AltModifier);
    expectFormOf(("A-" + std::to_string(column)).c_str(), column);
    put(form().NameText, "Other");
    clickOn(form().SaveButton.normal);
    EXPECT_EQ(assets().AssetViewTable.text(1, column), "Other") << "in its own place";
    clickCell(0, column);
    clickOn(assets().EditButton.normal);
    put(form().NameText, "Lathe");
    clickOn(form().SaveButton.normal);
    EXPECT_EQ(assets().AssetViewTable.columns(), 4);
  }
}

TEST_F(EditHelp, OpensAnAssetAfterADeletion) {
  saveWithoutComparing("A-1");
  clickOn(assets().NewButton.normal);
  saveWithoutComparing("A-2");
  clickCell(0, 1);
  boxes.answers = {QMessageBox::Yes};
  click(assets().DeleteButton.normal);
  EXPECT_EQ(boxes.take().size(), 1U);
  clickCell(0, 1);
  ASSERT_TRUE(wouldOpenABlankForm());
  const std::uint64_t before = revision();
  click(assets().EditButton.normal);
  expectFormOf("A-2", 0);
  EXPECT_EQ(revision(), before);
  EXPECT_TRUE(status(2).contains("1 asset"));
}

TEST_F(EditHelp, LeavesItToTheCalculatorToAskForASelection) {
  saveWithoutComparing("A-1");
  restart();
  click(assets().EditButton.normal);
  EXPECT_THAT(boxes.take(),
              ::testing::ElementsAre("Edit Assets | Please select an asset to edit by clicking any "
                                     "cell in the column."));
  EXPECT_EQ(shown(), "DepCalcView1");
}

TEST_F(EditHelp, ShowsNothingOfTheWayRound) {
  saveWithoutComparing("A-1");
  restart();
  clickCell(0, 1);
  std::vector<bool> painted;
  const Observation form_comes_up = form().observe([&](Aspect aspect) {
    if (aspect == Aspect::visible && form().visible()) painted.push_back(window.updatesEnabled());
  });
  click(assets().EditButton.normal);
  EXPECT_THAT(painted, ::testing::ElementsAre(false, true));
  EXPECT_TRUE(window.page().updatesEnabled());
  EXPECT_FALSE(assets().EditButton.pressed.visible());
}

}  // namespace
}  // namespace depcalc::testing
