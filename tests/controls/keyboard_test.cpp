// Where keys lead, on screens with and without popups.
#include "controls/keyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/label.h"
#include "controls/picture_button.h"
#include "controls/text_box.h"
#include "controls/user_control.h"
#include "tests/support/scripted_site.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Root : UserControl {
  explicit Root(Stage& stage) : UserControl(stage, "Root") { show(); }
};

struct Screen : UserControl {
  explicit Screen(UserControl& parent, const std::string& name) : UserControl(parent, name) {
    show();
    explains.onClick = [] {};
    explains.setTarget(first);
    link.onClick = [] {};
  }

  TextBox first{*this, "First"};
  TextBox last{*this, "Last"};
  Label explains{*this, "Explains", "Basis"};
  Label plain{*this, "Plain", "Text"};
  Label link{*this, "Link", "View All"};
  PicturePair save{*this, "Save", "save", "Save", 's'};
};

struct Keys : ::testing::Test {
  testing::ScriptedSite site;
  Stage stage{site};
  Root root{stage};
  Screen screen{root, "Screen"};

  [[nodiscard]] std::vector<std::string> stops() const {
    std::vector<std::string> names;
    for (const Control* stop : tabStops(stage)) names.push_back(stop->name());
    return names;
  }
};

TEST_F(Keys, AHiddenControlIsNobodysTarget) {
  ASSERT_NE(mnemonicTarget(stage, 'S'), nullptr);
  EXPECT_EQ(mnemonicTarget(stage, 's')->name(), screen.save.normal.name());
  EXPECT_EQ(mnemonicTarget(stage, 'x'), nullptr);
  EXPECT_EQ(mnemonicTarget(stage, 0), nullptr) << "no letter is nobody's";
  screen.save.normal.setVisible(false);
  EXPECT_EQ(mnemonicTarget(stage, 's'), nullptr);
  screen.save.normal.setVisible(true);
  screen.hide();
  EXPECT_EQ(mnemonicTarget(stage, 's'), nullptr) << "nor one on a screen that is not shown";
}

TEST_F(Keys, TheControlInFrontIsTheTarget) {
  Screen above{root, "Above"};
  above.bringToFront();
  EXPECT_EQ(mnemonicTarget(stage, 's'), &above.save.normal);
  screen.bringToFront();
  EXPECT_EQ(mnemonicTarget(stage, 's'), &screen.save.normal);
}

TEST_F(Keys, HelpIsWhatExplainsTheFieldThatHasTheFocus) {
  EXPECT_EQ(helpTarget(stage), nullptr)
      << "a label that explains nothing is no help, where nothing has the focus";
  screen.first.SetFocus();
  EXPECT_EQ(helpTarget(stage), &screen.explains);
  screen.last.SetFocus();
  EXPECT_EQ(helpTarget(stage), nullptr) << "no label names it";
  screen.plain.setRole(LabelRole::page_help);
  EXPECT_EQ(helpTarget(stage), &screen.plain);
  screen.first.SetFocus();
  EXPECT_EQ(helpTarget(stage), &screen.explains) << "its own label comes first";
  screen.explains.onClick = nullptr;
  EXPECT_EQ(helpTarget(stage), &screen.plain);
}

TEST_F(Keys, StopsAreButtonsThenLinks) {
  EXPECT_THAT(stops(), ElementsAre(screen.save.normal.name(), "Link"));
  screen.link.setText("");
  screen.save.normal.setVisible(false);
  EXPECT_THAT(stops(), IsEmpty());
}

TEST_F(Keys, APopupWithinAScreenHasItsFieldsAndStopsBehindTheScreens) {
  Screen popup{screen, "Popup"};
  std::vector<std::string> fields;
  for (const InputControl* field : tabFields(stage)) fields.push_back(field->parent()->name());
  EXPECT_THAT(fields, ElementsAre("Screen", "Screen", "Popup", "Popup"));
  EXPECT_EQ(stops().size(), 4u);
  popup.hide();
  EXPECT_EQ(tabFields(stage).size(), 2u);
}

TEST_F(Keys, TabLeadsFromTheLastFieldOverTheStopsToTheFirst) {
  using Kind = TabStep::Kind;
  const Control* const save = &screen.save.normal;
  struct Case {
    InputControl* focus;
    const Control* keys_at;
    bool backwards;
    Kind kind;
    const Control* target;
  };
  const Case cases[] = {
      {&screen.first, nullptr, false, Kind::along, nullptr},
      {&screen.last, nullptr, false, Kind::stop, save},
      {&screen.last, save, false, Kind::stop, &screen.link},
      {&screen.last, &screen.link, false, Kind::field, &screen.first},
      {&screen.last, nullptr, true, Kind::along, nullptr},
      {&screen.first, nullptr, true, Kind::stop, &screen.link},
      {&screen.first, &screen.link, true, Kind::stop, save},
      {&screen.first, save, true, Kind::field, &screen.last},
  };
  for (const Case& c : cases) {
    c.focus->SetFocus();
    const TabStep step = tabStep(stage, c.keys_at, c.backwards);
    EXPECT_EQ(step.kind, c.kind) << &c - cases;
    EXPECT_EQ(step.target, c.target) << &c - cases;
  }
}

TEST_F(Keys, TabStaysAmongTheStopsWhereThereIsNoField) {
  screen.first.setVisible(false);
  screen.last.setVisible(false);
  const Control* const save = &screen.save.normal;
  EXPECT_EQ(tabStep(stage, nullptr, false).target, save);
  EXPECT_EQ(tabStep(stage, nullptr, true).target, &screen.link);
  EXPECT_EQ(tabStep(stage, &screen.link, false).target, save);
  EXPECT_EQ(tabStep(stage, save, true).target, &screen.link);
  screen.link.setText("");
  screen.save.normal.setVisible(false);
  EXPECT_EQ(tabStep(stage, nullptr, false).kind, TabStep::Kind::along) << "nothing at all";
}

TEST_F(Keys, CloseIsTheButtonInFrontThatCloses) {
  EXPECT_EQ(closeTarget(stage), nullptr);
  screen.save.normal.setRole(ButtonRole::close);
  EXPECT_EQ(closeTarget(stage), &screen.save.normal);
}

}  // namespace
}  // namespace depcalc
