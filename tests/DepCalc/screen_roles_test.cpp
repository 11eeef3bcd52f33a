// What the screens' labels and buttons are for, as whoever shows them has to know it.
#include <gtest/gtest.h>

#include <map>

#include "DepCalc/calculator_screens.h"
#include "DepCalc/dep_calc_cont.h"
#include "controls/label.h"
#include "controls/picture_button.h"
#include "tests/support/scripted_site.h"

namespace depcalc::testing {
namespace {

struct ScreenRoles : ::testing::Test {
  /// How many labels and buttons of each role are on a screen; pressed twins do not count.
  void count(const char* screen) {
    labels.clear();
    buttons.clear();
    const auto& shown = dynamic_cast<const UserControl&>(*container.child(screen));
    for (const Control* child : shown.children()) {
      if (const auto* label = dynamic_cast<const Label*>(child)) ++labels[label->role()];
      const auto* button = dynamic_cast<const PictureButton*>(child);
      if (button != nullptr && button->under() == nullptr) ++buttons[button->role()];
    }
  }

  ScriptedSite site;
  Stage stage{site};
  CalculatorScreens screens;
  DepCalcCont container{stage, screens, [] { return nullptr; }};
  std::map<LabelRole, int> labels;
  std::map<ButtonRole, int> buttons;
};

TEST_F(ScreenRoles, APageHasATitleTwoTabsHelpAndOneButtonThatLeadsOn) {
  for (const char* page : {"DepCalcCtl1", "DepCalcDisplayCtl1", "DepCalcView1"}) {
    count(page);
    EXPECT_EQ(labels[LabelRole::title], 1) << page;
    EXPECT_EQ(labels[LabelRole::tab], 2) << page;
    EXPECT_EQ(labels[LabelRole::page_help], 1) << page;
    EXPECT_EQ(buttons[ButtonRole::primary], 1) << page;
    EXPECT_EQ(buttons[ButtonRole::close], 0) << page;
  }
}

TEST_F(ScreenRoles, APopupHasATitleLinksAndACross) {
  for (const char* popup : {"DepCalcPopup1", "DepCalcPopup2"}) {
    count(popup);
    EXPECT_EQ(labels[LabelRole::title], 1) << popup;
    EXPECT_EQ(labels[LabelRole::link], 6) << popup;
    EXPECT_EQ(buttons[ButtonRole::close], 1) << popup;
    EXPECT_EQ(buttons[ButtonRole::primary], 0) << popup;
  }
}

TEST_F(ScreenRoles, EveryLabelThatExplainsIsALink) {
  for (const char* page : {"DepCalcCtl1", "DepCalcDisplayCtl1", "DepCalcView1", "DepCalcPopup1"}) {
    const auto& shown = dynamic_cast<const UserControl&>(*container.child(page));
    for (const Control* child : shown.children()) {
      const auto* label = dynamic_cast<const Label*>(child);
      if (label == nullptr || label->role() == LabelRole::tab) continue;
      const bool leads = label->role() == LabelRole::link || label->role() == LabelRole::page_help;
      EXPECT_EQ(label->clickable(), leads) << label->name();
    }
  }
}

}  // namespace
}  // namespace depcalc::testing
