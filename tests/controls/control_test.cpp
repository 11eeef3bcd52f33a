// Properties, observers and the kinds of control that hold a text or a choice.
#include "controls/control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/shape.h"
#include "controls/text_box.h"
#include "controls/user.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Screen : UserControl {
  explicit Screen(Stage& stage) : UserControl(stage, "Screen") {}

  Label label{*this, "Caption", "Basis"};
  TextBox box{*this, "Box"};
  DropDownList list{*this, "List", {"Full Year", "Half Year"}};
  OptionButton option{*this, "Option", "By units"};
  PictureBox picture{*this, "Picture"};
  Shape shape{*this, "Shape"};
};

struct Properties : ::testing::Test {
  Properties() { trace.take(); }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  Screen screen{stage};
};

TEST_F(Properties, TellObserversOnceAndOnlyOfADifference) {
  struct Case {
    std::string name;
    Control& control;
    std::function<void()> set;
    Aspect aspect;
  };
  const std::vector<Case> cases = {
      {"visible", screen.label, [&] { screen.label.hide(); }, Aspect::visible},
      {"place", screen.label,
       [&] {
         screen.label.setPlace({1, 2, 3, 4});
       },
       Aspect::place},
      {"left", screen.box, [&] { screen.box.setLeft(7); }, Aspect::place},
      {"top", screen.box, [&] { screen.box.setTop(7); }, Aspect::place},
      {"width", screen.box, [&] { screen.box.setWidth(7); }, Aspect::place},
      {"height", screen.box, [&] { screen.box.setHeight(7); }, Aspect::place},
      {"fore", screen.box, [&] { screen.box.setForeColour(Colour(9)); }, Aspect::colours},
      {"back", screen.box, [&] { screen.box.setBackColour(Colour(9)); }, Aspect::colours},
      {"label text", screen.label, [&] { screen.label.setText("x"); }, Aspect::text},
      {"wrap", screen.label, [&] { screen.label.setWordWrap(true); }, Aspect::font},
      {"bold", screen.label, [&] { screen.label.setBold(true); }, Aspect::font},
      {"underline", screen.label, [&] { screen.label.setUnderline(true); }, Aspect::font},
      {"alignment", screen.box, [&] { screen.box.setAlignment(TextAlignment::right); },
       Aspect::font},
      {"text", screen.box, [&] { screen.box.setText("x"); }, Aspect::text},
      {"index", screen.list, [&] { screen.list.setIndex(1); }, Aspect::choice},
      {"option", screen.option, [&] { screen.option.setValue(true); }, Aspect::choice},
      {"option text", screen.option, [&] { screen.option.setText("x"); }, Aspect::text},
      {"picture", screen.picture, [&] { screen.picture.setPicture("x"); }, Aspect::picture},
      {"rounded", screen.shape, [&] { screen.shape.setRounded(true); }, Aspect::place},
      {"front", screen.label, [&] { screen.label.bringToFront(); }, Aspect::stacking},
      {"palette", screen, [&] { screen.setPalette({{Colour(1)}}); }, Aspect::palette},
      {"palette mode", screen, [&] { screen.setPaletteMode(2); }, Aspect::palette},
  };
  for (const auto& [name, control, set, aspect] : cases) {
    std::vector<Aspect> heard;
    const Observation observation = control.observe([&](Aspect what) { heard.push_back(what); });
    set();
    set();
    EXPECT_THAT(heard, ElementsAre(aspect)) << name;
  }
}

TEST_F(Properties, AreSetBeforeTheEventIsRaised) {
  std::vector<std::string> order;
  const auto observation = screen.box.observe([&](Aspect) { order.emplace_back("observer"); });
  screen.box.onChange = [&] { order.push_back("Change " + screen.box.text()); };
  screen.box.setText("5");
  screen.box.setText("5");
  EXPECT_THAT(order, ElementsAre("observer", "Change 5"));
  EXPECT_THAT(trace.take(), ElementsAre("Box.Change"));
}

TEST_F(Properties, ChangeAgainInsideAChangeHandlerAndComeToRest) {
  screen.box.onChange = [&] {
    if (!screen.box.text().empty()) screen.box.setText("");
  };
  screen.box.setText("-");
  EXPECT_EQ(screen.box.text(), "");
  EXPECT_THAT(trace.take(), ElementsAre("Box.Change", "Box.Change"));
}

TEST_F(Properties, RefuseNegativeSizes) {
  EXPECT_THROW(screen.box.setWidth(-1), RuntimeError);
  EXPECT_THROW(screen.box.setHeight(-1), RuntimeError);
  screen.box.setLeft(-1);
  EXPECT_EQ(screen.box.place(), (Place{-1, 0, 0, 0}));
}

TEST_F(Properties, KeepEachKindAndName) {
  EXPECT_EQ(screen.kind(), ControlKind::userControl);
  EXPECT_EQ(screen.label.kind(), ControlKind::label);
  EXPECT_EQ(screen.box.kind(), ControlKind::textBox);
  EXPECT_EQ(screen.list.kind(), ControlKind::dropDownList);
  EXPECT_EQ(screen.option.kind(), ControlKind::optionButton);
  EXPECT_EQ(screen.picture.kind(), ControlKind::pictureBox);
  EXPECT_EQ(screen.shape.kind(), ControlKind::shape);
  EXPECT_EQ(screen.child("Option"), &screen.option);
  EXPECT_EQ(screen.child("option"), nullptr);
  EXPECT_THAT(screen.children(), ElementsAre(&screen.label, &screen.box, &screen.list,
                                             &screen.option, &screen.picture, &screen.shape));
}

TEST_F(Properties, StackTheLastOneBroughtForwardInFront) {
  EXPECT_LT(screen.label.stacking(), screen.shape.stacking());
  screen.label.bringToFront();
  EXPECT_GT(screen.label.stacking(), screen.shape.stacking());
  screen.box.bringToFront();
  EXPECT_GT(screen.box.stacking(), screen.label.stacking());
  screen.bringToFront();
  EXPECT_EQ(screen.stacking(), 0);
}

TEST_F(Properties, AreHeardUntilTheObservationEnds) {
  int heard = 0;
  Observation first = screen.label.observe([&](Aspect) { ++heard; });
  Observation second = screen.label.observe([&](Aspect) { ++heard; });
  screen.label.setText("1");
  EXPECT_EQ(heard, 2);
  first = std::move(second);
  screen.label.setText("2");
  EXPECT_EQ(heard, 3);
  first.end();
  screen.label.setText("3");
  EXPECT_EQ(heard, 3);
}

TEST_F(Properties, SurviveAListenerThatEndsObservations) {
  Observation later;
  int heard = 0;
  Observation sooner = screen.label.observe([&](Aspect) {
    ++heard;
    sooner.end();
    later.end();
  });
  later = screen.label.observe([&](Aspect) { ++heard; });
  screen.label.setText("1");
  screen.label.setText("2");
  EXPECT_EQ(heard, 2) << "both hear the change under way, none the next";
}

TEST_F(Properties, AreForgottenByAnObservationThatOutlivesTheControl) {
  Observation observation;
  {
    auto other = std::make_unique<Screen>(stage);
    observation = other->label.observe([](Aspect) {});
  }
  observation.end();
  EXPECT_THAT(stage.roots(), ElementsAre(&screen));
}

TEST_F(Properties, RaiseChangeWhenAnotherItemIsChosen) {
  EXPECT_EQ(screen.list.index(), DropDownList::none);
  EXPECT_EQ(screen.list.text(), "");
  screen.list.setText("Half Year");
  screen.list.setIndex(1);
  EXPECT_EQ(screen.list.text(), "Half Year");
  screen.list.setIndex(DropDownList::none);
  EXPECT_THAT(trace.take(), ElementsAre("List.Change", "List.Change"));
}

TEST_F(Properties, RefuseItemsThatTheListDoesNotHave) {
  EXPECT_THROW(screen.list.setText("half year"), RuntimeError);
  EXPECT_THROW(screen.list.setIndex(2), RuntimeError);
  EXPECT_THROW(screen.list.setIndex(-2), RuntimeError);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Properties, SelectAnOptionByProgramWithoutAClick) {
  screen.option.onClick = [] { FAIL() << "nobody clicked"; };
  screen.option.setValue(true);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(Properties, FitALabelToItsText) {
  Label& label = screen.label;
  label.setWidth(1000);
  label.setAutoSize(true);
  EXPECT_EQ(label.width(), 5 * 80) << "eight points: 80 twips a character";
  EXPECT_EQ(label.height(), 200);
  label.setText("two\r\nlines");
  EXPECT_EQ(label.height(), 400);
  label.setFontSize(16);
  EXPECT_EQ(label.height(), 800);
  label.setFontSize(8);
  label.setWidth(800);
  label.setWordWrap(true);
  label.setText("Choose a name for an asset.");
  EXPECT_EQ(label.width(), 800);
  EXPECT_EQ(label.height(), 3 * 200) << "Choose a / name for / an asset.";
  label.setWidth(8000);
  EXPECT_EQ(label.height(), 200);
}

TEST(PlainTextExtent, WrapsBetweenWordsAndCutsLongOnes) {
  struct Case {
    std::string text;
    int characters_a_line;
    int lines;
  };
  const Font font{10, false, false};
  for (const auto& [text, room, lines] : std::vector<Case>{
           {"", 10, 1},
           {"abc", 3, 1},
           {"abcd", 3, 2},
           {"ab cd", 5, 1},
           {"ab cd", 4, 2},
           {"ab cd ef", 5, 2},
           {"abc def", 3, 2},
           {"abcdefg hi", 3, 4},
           {"a\nb", 10, 2},
           {"a\r\n\r\nb", 10, 3},
           {"\xE2\x80\x99\xE2\x80\x99 \xE2\x80\x99", 4, 1},
       }) {
    EXPECT_EQ(plainTextExtent(text, font, room * 100).height, lines * 250) << text;
    EXPECT_LE(plainTextExtent(text, font, room * 100).width, room * 100) << text;
  }
  EXPECT_EQ(plainTextExtent("ab\nabcd", font, 0), (TextExtent{400, 500}));
}

TEST(Colours, KeepSystemColoursAndFlagTheOthers) {
  EXPECT_EQ(Colour::rgb(102, 0, 0).value(), 0x00000066U);
  EXPECT_EQ(Colour::rgb(225, 197, 168).value(), 0x00A8C5E1U);
  EXPECT_EQ(Colour::rgb(225, 197, 168).paletteRelative().value(), 0x02A8C5E1U);
  EXPECT_EQ(Colour(0x80000005).paletteRelative().value(), 0x80000005U);
  const Colour tan = Colour::rgb(225, 197, 168).paletteRelative().paletteRelative();
  EXPECT_EQ(tan.value(), 0x02A8C5E1U);
  EXPECT_EQ(tan.red(), 225);
  EXPECT_EQ(tan.green(), 197);
  EXPECT_EQ(tan.blue(), 168);
}

TEST(Boxes, CanBeAnsweredByTheirOwnButtonsOnly) {
  using enum BoxAnswer;
  const std::vector<std::pair<BoxButtons, std::vector<BoxAnswer>>> catalogue = {
      {BoxButtons::ok, {ok}},
      {BoxButtons::yesNo, {yes, no}},
      {BoxButtons::yesNoCancel, {yes, no, cancel}}};
  for (const auto& [buttons, answers] : catalogue) {
    for (const BoxAnswer answer : {ok, yes, no, cancel}) {
      const bool expected = std::find(answers.begin(), answers.end(), answer) != answers.end();
      EXPECT_EQ(canAnswer(buttons, answer), expected) << boxAnswerText(answer);
    }
  }
}

TEST(Boxes, AreCalledAfterTheCalculatorWithoutATitle) {
  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage(site, &trace);
  stage.messageBox({"Printed."});
  EXPECT_THAT(trace.lines(), ElementsAre("box DepCalc10 | Printed. | OK -> OK"));
  EXPECT_EQ(testing::boxLine({"Sure?", BoxButtons::yesNoCancel, "Ask"}, BoxAnswer::cancel),
            "box Ask | Sure? | Yes/No/Cancel -> Cancel");
}

}  // namespace
}  // namespace depcalc
