// What a user does, in the order in which the controls hear of it.
#include "controls/user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_button.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Screen : UserControl {
  Screen(UserControl& parent, const std::string& name) : UserControl(parent, name) {}

  Label label{*this, "Label", "Help"};
  TextBox box{*this, "Box"};
  DropDownList list{*this, "List", {"Full Year", "Half Year", "Full Month"}};
  OptionButton straight{*this, "Straight", "Straight line"};
  OptionButton digits{*this, "Digits", "Digits"};
  PicturePair save{*this, "SaveButton", "save", "Save", 's'};
};

struct Container : UserControl {
  explicit Container(Stage& stage) : UserControl(stage, "Container") { show(); }

  Screen first{*this, "One"};
  Screen second{*this, "Two"};
};

struct UserTest : ::testing::Test {
  UserTest() {
    screen.show();
    stage.pumpPaint();
    screen.box.SetFocus();
    trace.take();
  }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  Container container{stage};
  Screen& screen = container.first;
};

struct Typing : UserTest {};

TEST_F(Typing, GoesKeyByKey) {
  std::vector<std::string> order;
  screen.box.onKeyPress = [&](char32_t key, bool&) {
    order.push_back("key " + std::to_string(key) + " text " + screen.box.text());
  };
  screen.box.onChange = [&] { order.push_back("change " + screen.box.text()); };
  user.type("1\xE2\x82\xAC");
  user.typeKey(User::backspace);
  EXPECT_THAT(order, ElementsAre("key 49 text ", "change 1", "key 8364 text 1",
                                 "change 1\xE2\x82\xAC", "key 8 text 1\xE2\x82\xAC", "change 1"));
}

TEST_F(Typing, WritesEveryCharacterAsUtf8) {
  const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9A\x9A";
  user.type(text);
  EXPECT_EQ(screen.box.text(), text);
}

TEST_F(Typing, LeavesADiscardedKeyOut) {
  screen.box.onKeyPress = [](char32_t key, bool& discard) { discard = key == U'x'; };
  user.type("axb");
  EXPECT_EQ(screen.box.text(), "ab");
  EXPECT_THAT(trace.take(), ElementsAre("Box.KeyPress", "Box.Change", "Box.KeyPress",
                                        "Box.KeyPress", "Box.Change"));
}

TEST_F(Typing, TakesControlKeysWithoutChangingTheText) {
  user.typeKey(13);
  user.typeKey(27);
  user.typeKey(31);
  user.typeKey(User::backspace);
  EXPECT_EQ(screen.box.text(), "");
  EXPECT_THAT(trace.take(),
              ElementsAre("Box.KeyPress", "Box.KeyPress", "Box.KeyPress", "Box.KeyPress"));
}

TEST_F(Typing, PastesThroughChangeAlone) {
  screen.box.onKeyPress = [](char32_t, bool& discard) { discard = true; };
  user.paste("pasted");
  EXPECT_EQ(screen.box.text(), "pasted");
  user.paste("pasted");
  user.clear();
  EXPECT_EQ(screen.box.text(), "");
  EXPECT_THAT(trace.take(), ElementsAre("Box.Change", "Box.Change"));
}

TEST_F(Typing, ReachesOnlyATextBoxWithTheFocus) {
  user.moveFocus(screen.list);
  trace.take();
  user.type("x");
  user.paste("y");
  EXPECT_FALSE(user.keyPress(screen.box, U'z'));
  user.edit(screen.box, "z");
  EXPECT_EQ(screen.box.text(), "");
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Typing, GoesOnAfterAChangeHandlerEmptiedTheText) {
  screen.box.onChange = [&] {
    if (screen.box.text() == "-") screen.box.setText("");
  };
  user.type("-12");
  EXPECT_EQ(screen.box.text(), "12");
}

struct FocusMoves : UserTest {};

TEST_F(FocusMoves, FollowTheOrderOfTheControlsRoundAndRound) {
  const std::vector<const InputControl*> order = {&screen.list, &screen.straight, &screen.digits,
                                                  &screen.box, &screen.list};
  for (const InputControl* next : order) {
    user.tab();
    EXPECT_EQ(stage.focused(), next) << next->name();
  }
  user.tab(true);
  user.tab(true);
  EXPECT_EQ(stage.focused(), &screen.digits);
}

TEST_F(FocusMoves, SkipWhatIsHidden) {
  screen.list.hide();
  user.tab();
  EXPECT_TRUE(screen.straight.hasFocus());
  screen.straight.hide();
  EXPECT_EQ(stage.focused(), nullptr) << "hiding a control drops its focus";
  user.tab();
  EXPECT_TRUE(screen.box.hasFocus()) << "from nowhere to the first of the screen shown";
  EXPECT_THAT(trace.take(), ElementsAre("Box.Validate"));
}

TEST_F(FocusMoves, DoNotReachHiddenScreens) {
  container.second.box.SetFocus();
  EXPECT_TRUE(screen.box.hasFocus());
  EXPECT_THAT(trace.take(), IsEmpty());
  container.hide();
  EXPECT_EQ(stage.focused(), nullptr);
  screen.box.SetFocus();
  EXPECT_EQ(stage.focused(), nullptr) << "visible, but inside something hidden";
}

TEST_F(FocusMoves, DoNothingOnTheControlThatHasIt) {
  screen.box.onValidate = [](bool& cancel) { cancel = true; };
  screen.box.SetFocus();
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(FocusMoves, GoOnAfterARefusal) {
  int validations = 0;
  screen.box.onValidate = [&](bool& cancel) { cancel = ++validations == 1; };
  screen.list.SetFocus();
  screen.digits.SetFocus();
  EXPECT_EQ(validations, 2);
  EXPECT_TRUE(screen.digits.hasFocus());
}

TEST_F(FocusMoves, WaitUntilAValidationIsOver) {
  screen.box.onValidate = [&](bool&) {
    screen.digits.SetFocus();
    EXPECT_TRUE(screen.box.hasFocus());
  };
  user.tab();
  EXPECT_TRUE(screen.list.hasFocus());
  EXPECT_THAT(trace.take(), ElementsAre("Box.Validate"));
}

TEST_F(FocusMoves, EndWhereTheValidationHidTheirTarget) {
  screen.box.onValidate = [&](bool&) { screen.hide(); };
  EXPECT_FALSE(user.moveFocus(screen.list));
  EXPECT_EQ(stage.focused(), nullptr);
}

TEST_F(FocusMoves, SurviveAnErrorInsideAValidation) {
  screen.box.onValidate = [](bool&) { throw RuntimeError::typeMismatch(); };
  EXPECT_THROW(user.tab(), RuntimeError);
  screen.box.onValidate = nullptr;
  user.tab();
  EXPECT_TRUE(screen.list.hasFocus());
}

TEST_F(FocusMoves, AreHeardByBothControls) {
  std::vector<std::string> heard;
  const auto from = screen.box.observe([&](Aspect) { heard.emplace_back("box"); });
  const auto to = screen.list.observe([&](Aspect aspect) {
    if (aspect == Aspect::focus) heard.emplace_back("list");
  });
  user.tab();
  EXPECT_THAT(heard, ElementsAre("box", "list"));
}

TEST_F(FocusMoves, PrecedeAChoiceFromAList) {
  user.chooseItem(screen.list, 1);
  EXPECT_EQ(screen.list.text(), "Half Year");
  EXPECT_THAT(trace.take(), ElementsAre("Box.Validate", "List.Change"));
  user.moveFocus(screen.box);
  screen.box.onValidate = [](bool& cancel) { cancel = true; };
  user.chooseItem(screen.list, 0);
  EXPECT_EQ(screen.list.text(), "Half Year") << "refused: nothing is chosen";
}

TEST_F(FocusMoves, PrecedeTheClickOnAnOption) {
  user.click(screen.digits);
  EXPECT_TRUE(screen.digits.value());
  EXPECT_THAT(trace.take(),
              ElementsAre("One.Activate", "Container.Activate", "Box.Validate", "Digits.Click"));
  user.moveFocus(screen.box);
  screen.box.onValidate = [](bool& cancel) { cancel = true; };
  user.click(screen.straight);
  EXPECT_FALSE(screen.straight.value());
  EXPECT_TRUE(screen.box.hasFocus());
}

TEST_F(FocusMoves, AreNotCausedByButtonsAndLabels) {
  screen.box.onValidate = [](bool&) { FAIL() << "nothing moves the focus"; };
  user.click(screen.label);
  user.click(screen.save.normal);
  EXPECT_TRUE(screen.box.hasFocus());
}

TEST_F(FocusMoves, ByArrowChooseAmongItemsAndOptions) {
  user.moveFocus(screen.list);
  user.arrow(Direction::down);
  EXPECT_EQ(screen.list.index(), 0);
  user.arrow(Direction::right);
  user.arrow(Direction::down);
  user.arrow(Direction::down);
  EXPECT_EQ(screen.list.index(), 2) << "a list ends at its last item";
  user.arrow(Direction::up);
  EXPECT_EQ(screen.list.index(), 1);
  user.moveFocus(screen.straight);
  user.arrow(Direction::down);
  EXPECT_TRUE(screen.digits.hasFocus());
  EXPECT_TRUE(screen.digits.value());
  user.arrow(Direction::down);
  EXPECT_TRUE(screen.straight.hasFocus());
  user.moveFocus(screen.box);
  trace.take();
  user.arrow(Direction::left);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(FocusMoves, OutOfTheCalculatorValidateAndTellTheContainer) {
  user.leave();
  EXPECT_TRUE(screen.box.hasFocus());
  screen.box.onValidate = [](bool& cancel) { cancel = true; };
  user.leave();
  const std::vector<std::string> once = {"Box.Validate", "Container.LostFocus"};
  EXPECT_THAT(trace.take(), ElementsAre(once[0], once[1], once[0], once[1]));
  screen.hide();
  trace.take();
  user.leave();
  EXPECT_THAT(trace.take(), ElementsAre("Container.LostFocus"));
}

struct Mouse : UserTest {};

TEST_F(Mouse, PressesAndReleasesTheSameControlAsAPair) {
  user.mouseDown(screen.save.normal);
  EXPECT_THAT(trace.take(),
              ElementsAre("One.Activate", "Container.Activate", "SaveButton.MouseDown"));
  user.mouseUp(&screen.save.normal);
  EXPECT_THAT(trace.take(), ElementsAre("SaveButton.MouseUp", "SaveButton.Click"));
  user.mouseUp(&screen.save.normal);
  EXPECT_THAT(trace.take(), IsEmpty()) << "a release without a press";
}

TEST_F(Mouse, ReleasedOnThePressedPictureCountsForItsButton) {
  screen.save.normal.onMouseDown = [&] { screen.save.pressed.show(); };
  screen.save.normal.onMouseUp = [&] { screen.save.pressed.hide(); };
  user.mouseDown(screen.save.normal);
  EXPECT_TRUE(screen.save.pressed.visible());
  trace.take();
  user.mouseUp(&screen.save.pressed);
  EXPECT_FALSE(screen.save.pressed.visible());
  EXPECT_THAT(trace.take(), ElementsAre("SaveButton.MouseUp", "SaveButton.Click"));
}

TEST_F(Mouse, ReleasedElsewhereAbandonsThePress) {
  screen.save.normal.onMouseDown = [&] { screen.save.pressed.show(); };
  for (Control* elsewhere : std::vector<Control*>{&screen.label, nullptr}) {
    user.mouseDown(screen.save.normal);
    trace.take();
    user.mouseUp(elsewhere);
    EXPECT_FALSE(screen.save.pressed.visible());
    EXPECT_THAT(trace.take(), ElementsAre("SaveButton.PressAbandoned"));
  }
  user.mouseDown(screen.label);
  trace.take();
  user.mouseUp(&screen.save.normal);
  EXPECT_THAT(trace.take(), IsEmpty()) << "nor does the button that it landed on act";
}

TEST_F(Mouse, SwallowsTheReleaseWhereThePressActed) {
  int acted = 0;
  screen.save.normal.onMouseDown = [&] { screen.save.normal.releaseNow(); };
  screen.save.normal.onMouseUp = [&] {
    ++acted;
    screen.hide();
    container.second.show();
  };
  container.second.save.normal.onMouseUp = [] { FAIL() << "landed on the next screen"; };
  user.mouseDown(screen.save.normal);
  user.mouseUp(&container.second.save.normal);
  EXPECT_EQ(acted, 1);
  EXPECT_THAT(trace.take(),
              ElementsAre("One.Activate", "Container.Activate", "SaveButton.MouseDown",
                          "SaveButton.MouseUp", "One.Hide", "Two.Show"));
}

TEST_F(Mouse, ActsOncePerClickWhereThePressActed) {
  int acted = 0;
  screen.save.normal.onMouseDown = [&] { screen.save.normal.releaseNow(); };
  screen.save.normal.onMouseUp = [&] { ++acted; };
  user.click(screen.save.normal);
  user.click(screen.save.normal);
  EXPECT_EQ(acted, 2);
}

TEST_F(Mouse, DoesNothingOnWhatIsHidden) {
  user.click(container.second.label);
  screen.save.setVisible(false);
  user.click(screen.save.normal);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Mouse, AbandonsAPressWhoseControlVanished) {
  screen.save.normal.onMouseDown = [&] { screen.hide(); };
  screen.save.normal.onMouseUp = [] { FAIL() << "it is gone"; };
  user.click(screen.save.normal);
  EXPECT_THAT(trace.take(), ::testing::Contains("SaveButton.PressAbandoned"));
}

TEST_F(Mouse, ClicksNothingThatItsReleaseHid) {
  screen.save.normal.onMouseUp = [&] { screen.hide(); };
  screen.save.normal.onClick = [] { FAIL() << "it is gone"; };
  user.click(screen.save.normal);
  EXPECT_FALSE(screen.visible());
}

TEST_F(Mouse, ForgetsAPressWhoseControlCameToItsEnd) {
  auto passing = std::make_unique<Screen>(container, "Three");
  passing->show();
  user.mouseDown(passing->save.normal);
  passing.reset();
  trace.take();
  user.mouseUp(nullptr);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Mouse, ShowsPairsTogether) {
  screen.save.setPlace({1, 2, 3, 4});
  EXPECT_EQ(screen.save.normal.place(), screen.save.pressed.place());
  EXPECT_FALSE(screen.save.pressed.visible());
  EXPECT_EQ(screen.save.normal.picture(), "save");
  EXPECT_EQ(screen.save.pressed.picture(), "save-pressed");
  EXPECT_EQ(screen.save.pressed.name(), "SaveButtonP");
  EXPECT_EQ(screen.save.normal.caption(), "Save");
  EXPECT_EQ(screen.save.normal.mnemonic(), 's');
  EXPECT_EQ(screen.save.pressed.under(), &screen.save.normal);
  screen.save.pressed.show();
  screen.save.setVisible(false);
  EXPECT_FALSE(screen.save.pressed.visible());
  screen.save.setVisible(true);
  EXPECT_FALSE(screen.save.pressed.visible());
}

}  // namespace
}  // namespace depcalc
