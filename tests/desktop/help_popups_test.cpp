// Where help stands in the window, and when it goes.
#include <QScrollBar>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

struct HelpPopups : WindowTest {
  HelpPopups() {
    settings.setShown("assets", false);
    window.resize(1280, 760);
    newCompany();
  }

  DepCalcPopup& second() { return screen<DepCalcPopup>("DepCalcPopup2"); }
  QRect onPage(const Control& control) {
    QWidget& shown = widget(control);
    return {shown.mapTo(window.page().viewport(), QPoint()), shown.size()};
  }
  bool inSight(const Control& control) {
    return window.page().viewport()->rect().contains(onPage(control));
  }
  void compareTruck() {
    enterAsset({"TRK-014", "Delivery truck", "", "", "9/15/2023", "July", "5", "Half Year", "38450",
                "4000", ""});
    key(Qt::Key_C, Qt::AltModifier);
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  }
};

TEST_F(HelpPopups, LeaveEveryFieldOfTheFormInSight) {
  for (Control* label : form().children()) {
    const auto* const named = dynamic_cast<const Label*>(label);
    if (named == nullptr || named->target() == nullptr || !named->clickable()) continue;
    click(*label);
    ASSERT_TRUE(popup().isShown()) << label->name();
    EXPECT_TRUE(inSight(popup())) << label->name();
    for (const Control* control : form().children()) {
      const bool field = dynamic_cast<const InputControl*>(control) != nullptr;
      if (!field && control != label) continue;
      EXPECT_FALSE(onPage(popup()).intersects(onPage(*control)))
          << label->name() << " over " << control->name();
      EXPECT_TRUE(inSight(*control)) << control->name();
    }
  }
}

TEST_F(HelpPopups, LeaveTheLinksOfTheFirstInSight) {
  for (int link = 0; link < 5; ++link) {
    action("Using This Calculator").trigger();
    settle();
    click(popup().LinkLabel.at(static_cast<std::size_t>(link)));
    ASSERT_TRUE(second().isShown());
    EXPECT_FALSE(onPage(popup()).intersects(onPage(second()))) << link;
    EXPECT_TRUE(inSight(second())) << link;
  }
}

TEST_F(HelpPopups, AreScrolledIntoSightWhereTheWindowIsSmall) {
  window.resize(500, 300);
  settle();
  click(form().AIDLabel);
  EXPECT_TRUE(inSight(popup()));
  EXPECT_EQ(calculator().container().width(), form().width()) << "the container stays as it is";
}

TEST_F(HelpPopups, MakeRoomThatGoesWithThem) {
  window.resize(950, 760);
  settle();
  const int before = onPage(form()).left();
  EXPECT_EQ(onPage(form()).center().x() / 4, window.page().viewport()->rect().center().x() / 4);
  click(form().AIDLabel);
  EXPECT_GE(onPage(popup()).right(), onPage(form().IDText).right());
  key(Qt::Key_Escape);
  EXPECT_EQ(onPage(form()).left(), before);
  EXPECT_EQ(window.page().horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpPopups, CloseWhenAnotherScreenComesUp) {
  action("Deleting a record").trigger();
  settle();
  ASSERT_TRUE(popup().isShown());
  ASSERT_TRUE(second().isShown());
  click(form().ViewAllLabel);
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_FALSE(popup().isShown());
  EXPECT_FALSE(second().isShown());
  EXPECT_EQ(window.page().horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpPopups, StayOnTheScreenTheyWereOpenedOn) {
  click(form().AIDLabel);
  click(form().ClearButton.normal);
  EXPECT_TRUE(popup().isShown()) << "the same form, shown anew";
  compareTruck();
  EXPECT_FALSE(popup().isShown());
  click(comparison().TotalHelp);
  EXPECT_TRUE(popup().isShown());
  EXPECT_TRUE(inSight(popup()));
}

TEST_F(HelpPopups, ComeToTheFrontWhenTheirBackgroundIsPressed) {
  action("Deleting a record").trigger();
  settle();
  ASSERT_GT(second().stacking(), popup().stacking());
  for (const QPoint at : {QPoint(0, 0), QPoint(3, 3), QPoint(40, 30)}) {
    second().bringToFront();
    QTest::mouseClick(window.childAt(widget(popup()).mapTo(&window, at)), Qt::LeftButton,
                      Qt::NoModifier, {});
    EXPECT_GT(popup().stacking(), second().stacking()) << at.x();
  }
}

}  // namespace
}  // namespace depcalc::testing
