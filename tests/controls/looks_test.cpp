// What every toolkit draws by: tones, grounds, letters, and what reaches beyond a screen.
#include "controls/looks.h"

#include <gtest/gtest.h>

#include "controls/overhang.h"
#include "controls/stage.h"
#include "controls/user_control.h"
#include "tests/support/scripted_site.h"

namespace depcalc {
namespace {

struct Popup : UserControl {
  explicit Popup(UserControl& parent) : UserControl(parent, "Popup") {}
};

struct Screen : UserControl {
  explicit Screen(Stage& stage) : UserControl(stage, "Screen") {
    setPlace({0, 0, 6000, 4000});
    setBackColour(Colour::rgb(1, 1, 1));
  }

  Shape far{*this, "Far"};
  Shape near{*this, "Near"};
  Label label{*this, "Caption", "  Basis \n"};
  Grid grid{*this, "Table", 2, 3};
  Popup popup{*this};
};

struct Looks : ::testing::Test {
  testing::ScriptedSite site;
  Stage stage{site};
  Screen screen{stage};
};

TEST(Mnemonics, AreUnderlinedAtAWordsStartBeforeAnywhereElse) {
  struct Case {
    std::string_view text;
    char letter;
    int position;
  };
  for (const Case& c :
       {Case{"Print", 'P', 0}, Case{"Print", 'p', 0}, Case{"print", 'P', 0}, Case{"Delete", 'e', 1},
        Case{"Delete", 'X', -1}, Case{"Delete", 0, -1}, Case{"", 'a', -1},
        Case{"View All Assets", 'A', 5}, Case{"Basal\nAsset", 'a', 6}, Case{"Jazz", 'Z', 2},
        Case{"fuzz Zone", 'z', 5}, Case{"Baa a", 'A', 4}, Case{"[b", '{', -1}, Case{"{", '[', -1},
        Case{"@a", '`', -1}}) {
    EXPECT_EQ(looks::mnemonicPosition(c.text, c.letter), c.position) << c.text << ' ' << c.letter;
  }
}

TEST(DarkTones, TurnLightIntoDarkAndBackAndStayApart) {
  EXPECT_NEAR(looks::onDark({0, 1}).lightness, 0.11, 1e-9);
  EXPECT_NEAR(looks::onDark({0, 0}).lightness, 0.92, 1e-9);
  EXPECT_NEAR(looks::onDark({0, 0.5}).lightness, 0.515, 1e-9);
  for (int i = 0; i < 100; ++i) {
    EXPECT_GT(looks::onDark({0, i / 100.0}).lightness,
              looks::onDark({0, (i + 1) / 100.0}).lightness)
        << i;
  }
  EXPECT_NEAR(looks::onDark({1, 0}).saturation, 0.75, 1e-9);
  EXPECT_NEAR(looks::onDark({1, 1}).saturation, 0.3, 1e-9) << "a dark surface is greyer";
  EXPECT_NEAR(looks::onDark({0.5, 0}).saturation, 0.5, 1e-9);
}

TEST_F(Looks, AControlStandsOnTheNearestShapeThatHoldsAllOfIt) {
  const Colour far = Colour::rgb(2, 2, 2);
  const Colour near = Colour::rgb(3, 3, 3);
  screen.far.setBackColour(far);
  screen.near.setBackColour(near);
  screen.far.setPlace({100, 100, 1000, 1000});
  screen.near.setPlace({200, 200, 500, 500});
  screen.label.bringToFront();
  struct Case {
    Place place;
    Colour ground;
  };
  for (const auto& [place, ground] :
       {Case{{200, 200, 500, 500}, near}, Case{{199, 200, 100, 100}, far},
        Case{{200, 199, 100, 100}, far}, Case{{201, 300, 500, 100}, far},
        Case{{300, 201, 100, 500}, far}, Case{{100, 100, 1000, 1000}, far},
        Case{{99, 100, 100, 100}, Colour::rgb(1, 1, 1)},
        Case{{100, 101, 10, 1000}, Colour::rgb(1, 1, 1)}}) {
    screen.label.setPlace(place);
    EXPECT_EQ(looks::groundBehind(screen.label), ground) << place.left << ' ' << place.top;
  }
  screen.label.setPlace({300, 300, 10, 10});
  screen.near.setVisible(false);
  EXPECT_EQ(looks::groundBehind(screen.label), far);
  screen.near.setVisible(true);
  screen.near.bringToFront();
  EXPECT_EQ(looks::groundBehind(screen.label), far) << "what lies in front is no ground";
}

TEST_F(Looks, OnlyAnAngularFrameAroundARoundedOneSurroundsAPage) {
  EXPECT_FALSE(looks::surroundsPage(screen.far));
  screen.near.setRounded(true);
  EXPECT_TRUE(looks::surroundsPage(screen.far));
  EXPECT_FALSE(looks::surroundsPage(screen.near));
}

TEST_F(Looks, BlanksAroundOneLineAreNotShown) {
  EXPECT_EQ(looks::shownText(screen.label), "Basis");
  screen.label.setText(" \t ");
  EXPECT_EQ(looks::shownText(screen.label), "");
  screen.label.setWordWrap(true);
  EXPECT_EQ(looks::shownText(screen.label), " \t ");
}

TEST_F(Looks, CellsStandOnWhatTheyAre) {
  screen.grid.setKind(0, 0, CellKind::caption);
  screen.grid.setKind(0, 1, CellKind::heading);
  screen.grid.setKind(1, 1, CellKind::amount);
  screen.grid.setKind(1, 2, CellKind::amount);
  screen.grid.setColumn(0);
  EXPECT_FALSE(looks::isMarkedColumn(screen.grid, 0)) << "it holds the captions";
  EXPECT_EQ(looks::cellGround(screen.grid, 0, 0), looks::caption);
  EXPECT_EQ(looks::cellGround(screen.grid, 1, 1), window_background);
  screen.grid.setColumn(1);
  EXPECT_TRUE(looks::isMarkedColumn(screen.grid, 1));
  EXPECT_EQ(looks::cellGround(screen.grid, 0, 1), looks::heading);
  EXPECT_EQ(looks::cellGround(screen.grid, 1, 1), looks::selection);
  EXPECT_EQ(looks::cellGround(screen.grid, 1, 2), window_background);
}

TEST_F(Looks, ThePlaceOfAScreenHasRoomForWhatFloatsBesideIt) {
  screen.popup.setPlace({5000, 3000, 500, 500});
  screen.popup.setVisible(true);
  EXPECT_EQ(placeWithOverhang(screen).width, 6000);
  EXPECT_EQ(placeWithOverhang(screen).height, 4000);
  screen.popup.setPlace({5600, 3600, 401, 401});
  EXPECT_EQ(placeWithOverhang(screen).width, 6121);
  EXPECT_EQ(placeWithOverhang(screen).height, 4121);
  screen.popup.setVisible(false);
  EXPECT_EQ(placeWithOverhang(screen).width, 6000);
  screen.popup.setVisible(true);
  for (const auto& [place, floating] :
       {std::pair{Place{0, 0, 9000, 9000}, false}, std::pair{Place{1, 0, 9000, 10}, true},
        std::pair{Place{0, 1, 9000, 10}, true}}) {
    screen.popup.setPlace(place);
    EXPECT_EQ(floats(screen.popup), floating);
    EXPECT_EQ(placeWithOverhang(screen).width, floating ? place.left + 9120 : 6000);
  }
  EXPECT_FALSE(floats(screen.label));
}

}  // namespace
}  // namespace depcalc
