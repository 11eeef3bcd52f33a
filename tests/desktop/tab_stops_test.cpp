// Tab beyond the last field: the buttons and links of the page.
#include "controls/keyboard.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct TabStops : WindowTest {
  TabStops() { newCompany(); }

  static std::string keys() {
    const QWidget* const at = QApplication::focusWidget();
    return at == nullptr ? "" : at->objectName().toStdString();
  }
  std::vector<std::string> walk(int steps) {
    std::vector<std::string> names;
    for (int i = 0; i < steps; ++i) {
      key(Qt::Key_Tab);
      names.push_back(keys());
    }
    return names;
  }
};

TEST_F(TabStops, FollowTheLastFieldAndLeadBackToTheFirst) {
  click(form().ProdCapText);
  EXPECT_THAT(walk(7), ElementsAre("CalcButton", "ClearButton", "SaveButton", "ViewAllLabel",
                                   "HelpLabel", "stepLabel", "IDText"));
  EXPECT_EQ(focused(), "IDText");
}

TEST_F(TabStops, LeadBackWithShift) {
  click(form().IDText);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keys(), "stepLabel");
  for (int i = 0; i < 5; ++i) key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keys(), "CalcButton");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keys(), "ProdCapText");
  EXPECT_EQ(focused(), "ProdCapText");
}

TEST_F(TabStops, LeaveTheCalculatorsFocusWhereItIsAndValidateNothing) {
  click(form().ProdCapText);
  type("1234567890123");
  boxes.take();
  const std::string typed = form().ProdCapText.text();
  int asked = 0;
  form().ProdCapText.onValidate = [&asked](bool& cancel) {
    ++asked;
    cancel = true;
  };
  walk(3);
  EXPECT_EQ(focused(), "ProdCapText");
  EXPECT_EQ(asked, 0);
  walk(4);
  EXPECT_EQ(asked, 1) << "going on to the first field does";
  EXPECT_EQ(keys(), "ProdCapText") << "and may be refused";
  EXPECT_EQ(form().ProdCapText.text(), typed);
}

TEST_F(TabStops, ArePressedBySpaceAndEnter) {
  enterAsset({"TRK-014", "Delivery truck", "", "", "9/15/2023", "July", "5", "Half Year", "38450",
              "4000", ""});
  EXPECT_EQ(keys(), "CalcButton");
  key(Qt::Key_Space);
  EXPECT_EQ(shown(), "DepCalcDisplayCtl1");
  for (int i = 0; i < 20 && keys() != "SaveButton"; ++i) key(Qt::Key_Tab);
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(calculator().assetCount(), 1);
}

TEST_F(TabStops, ReachTheLinksOfHelpAndGiveTheKeysBackWhenItCloses) {
  click(form().ProdCapText);
  walk(5);
  ASSERT_EQ(keys(), "HelpLabel");
  key(Qt::Key_Space);
  ASSERT_TRUE(popup().isShown());
  EXPECT_THAT(walk(4), ElementsAre("stepLabel", "CloseButton", "LinkLabel(0)", "LinkLabel(1)"));
  key(Qt::Key_Return);
  EXPECT_TRUE(screen<DepCalcPopup>("DepCalcPopup2").isShown());
  key(Qt::Key_Escape);
  EXPECT_EQ(keys(), "LinkLabel(1)");
  key(Qt::Key_Escape);
  EXPECT_FALSE(popup().isShown());
  EXPECT_EQ(keys(), "ProdCapText") << "no key is lost";
  type("7");
  EXPECT_EQ(form().ProdCapText.text(), "7");
}

TEST_F(TabStops, GiveTheKeysBackToAFieldThatIsClicked) {
  click(form().ProdCapText);
  walk(2);
  click(form().ProdCapText);
  EXPECT_EQ(keys(), "ProdCapText");
}

TEST_F(TabStops, KnowTheKeysThatMeanTheSameEverywhere) {
  click(form().ProdCapText);
  walk(1);
  key(Qt::Key_F1);
  EXPECT_EQ(popup().HelpTitle.text(), "Production Capacity");
  key(Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(shown(), "DepCalcView1");
}

TEST_F(TabStops, ShowARing) {
  const QColor ring = calculator().surface().colours().focusRing();
  const auto coloured = [&](const Control& stop) {
    const QImage page = window.page().grab().toImage();
    const QRect its(widget(stop).mapTo(&window.page(), QPoint()), widget(stop).size());
    int count = 0;
    for (int y = its.top() - 5; y < its.bottom() + 5; ++y) {
      for (int x = its.left() - 5; x < its.right() + 5; ++x) {
        if (page.rect().contains(x, y) && page.pixelColor(x, y) == ring) ++count;
      }
    }
    return count;
  };
  click(form().ProdCapText);
  for (const Control* stop : tabStops(calculator().stage())) {
    EXPECT_EQ(coloured(*stop), 0) << stop->name();
    key(Qt::Key_Tab);
    ASSERT_EQ(keys(), stop->name());
    EXPECT_GT(coloured(*stop), 100) << stop->name();
  }
  window.setZoom(75);
  settle();
  EXPECT_GT(coloured(form().stepLabel), 75) << "at another zoom";
}

}  // namespace
}  // namespace depcalc::testing
