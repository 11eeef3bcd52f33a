#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/label.h"
#include "controls/user.h"
#include "tests/support/scripted_site.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Screen : UserControl {
  explicit Screen(Stage& stage) : UserControl(stage, "Screen") {}

  Label caption{*this, "Caption", "Caption"};
  TextBox first{*this, "First"};
  TextBox second{*this, "Second"};
};

struct Focus : ::testing::Test {
  Focus() {
    screen.show();
    stage.pumpPaint();
    screen.first.SetFocus();
    trace.take();
  }

  testing::ScriptedSite site;
  TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  Screen screen{stage};
};

TEST_F(Focus, ValidatesTheOldControlFirst) {
  user.tab();
  EXPECT_TRUE(screen.second.hasFocus());
  EXPECT_THAT(trace.take(), ElementsAre("First.Validate"));
}

TEST_F(Focus, StaysWhereValidationCancels) {
  screen.first.onValidate = [&](bool& cancel) {
    cancel = true;
    screen.first.SetFocus();
  };
  screen.second.SetFocus();
  EXPECT_TRUE(screen.first.hasFocus());
  EXPECT_THAT(trace.take(), ElementsAre("First.Validate"));
}

TEST_F(Focus, IsNotTakenByLabels) {
  user.click(screen.caption);
  EXPECT_TRUE(screen.first.hasFocus());
  EXPECT_THAT(trace.take(), ElementsAre("Screen.Activate", "Caption.Click"));
}

TEST_F(Focus, IsDroppedUnvalidatedWhenTheScreenIsHidden) {
  screen.hide();
  EXPECT_EQ(stage.focused(), nullptr);
  EXPECT_THAT(trace.take(), ElementsAre("Screen.Hide"));
}

TEST_F(Focus, SendsKeysThroughKeyPressThenChange) {
  user.type("a\xC3\xA9");
  EXPECT_EQ(screen.first.text(), "a\xC3\xA9");
  EXPECT_THAT(trace.take(),
              ElementsAre("First.KeyPress", "First.Change", "First.KeyPress", "First.Change"));
  user.typeKey(User::kBackspace);
  EXPECT_EQ(screen.first.text(), "a");
}

TEST_F(Focus, IsUntouchedByMessageBoxes) {
  site.answers = {BoxAnswer::no};
  EXPECT_EQ(stage.messageBox({"Sure?", BoxButtons::yesNo, "Ask"}), BoxAnswer::no);
  EXPECT_THAT(trace.take(), ElementsAre("box Ask | Sure? | Yes/No -> No"));
  EXPECT_THAT(site.answers, IsEmpty());
}

}  // namespace
}  // namespace depcalc
