#include "help/dep_calc_popup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/colour_scheme.h"
#include "controls/user.h"
#include "help/help_topics.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Container : UserControl, DepCalcPopupEvents {
  explicit Container(Stage& stage) : UserControl(stage, "Container") { setSize(12000, 9000); }

  void CloseMe() override {
    said.emplace_back("CloseMe");
    popup.hide();
  }
  void GetHelpTopic(std::string& myHelpTopic) override {
    said.emplace_back("GetHelpTopic");
    myHelpTopic = topic;
  }
  void ResizedDisplay() override { said.emplace_back("ResizedDisplay"); }
  void OpenNewMe(const std::string& myHelpTopic) override {
    said.push_back("OpenNewMe " + myHelpTopic);
  }
  void FrontMe() override { said.emplace_back("FrontMe"); }

  std::vector<std::string> take() { return std::exchange(said, {}); }

  std::string topic;
  std::vector<std::string> said;
  DepCalcPopup popup{*this, "DepCalcPopup1", *this};
};

struct HelpPopup : ::testing::Test {
  HelpPopup() { container.show(); }

  void open(std::string topic) {
    popup.hide();
    container.topic = std::move(topic);
    popup.show();
    stage.pumpPaint();
  }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  Container container{stage};
  DepCalcPopup& popup = container.popup;
};

TEST_F(HelpPopup, AsksForItsTopicWhenShownAndIsSizedWhenPainted) {
  container.topic = "Salvage";
  popup.show();
  EXPECT_THAT(container.take(), ElementsAre("GetHelpTopic"));
  EXPECT_EQ(popup.HelpTitle.text(), "Salvage Value");
  EXPECT_EQ(popup.width(), 0);
  stage.pumpPaint();
  EXPECT_THAT(container.take(), ElementsAre("ResizedDisplay"));
  stage.expose();
  stage.pumpPaint();
  EXPECT_THAT(container.take(), IsEmpty()) << "it is sized once for a showing";
}

TEST_F(HelpPopup, ShowsEveryTopicOfTheCatalogueInAPanelJustLargeEnough) {
  for (const HelpTopic& topic : helpTopics()) {
    SCOPED_TRACE(topic.topic);
    open(std::string(topic.topic));
    EXPECT_EQ(popup.HelpTitle.text(), topic.title);
    EXPECT_EQ(popup.HelpLabel.text(), topic.body);
    int bottom = popup.HelpLabel.top() + popup.HelpLabel.height();
    for (const Label& link : popup.LinkLabel) {
      EXPECT_EQ(link.visible(), topic.topic == "MainHelp");
      if (!link.text().empty()) bottom = std::max(bottom, link.top() + link.height());
      EXPECT_LE(link.left() + link.width(), popup.width());
    }
    EXPECT_GT(popup.height(), bottom);
    EXPECT_LT(popup.height(), bottom + 300) << "a small margin only";
    EXPECT_GE(popup.CloseButton.left(), popup.HelpTitle.left() + popup.HelpTitle.width());
    EXPECT_LT(popup.CloseButton.left() + popup.CloseButton.width(), popup.width());
    EXPECT_EQ(popup.BorderShape.width(), popup.width() - 30) << "a pixel on each side";
    EXPECT_EQ(popup.BorderShape.height(), popup.height() - 30);
  }
}

TEST_F(HelpPopup, IsAsWideAsItsLongestLine) {
  open("Convention");
  const int widest = popup.width();
  EXPECT_EQ(popup.HelpLabel.width() + 2 * popup.HelpLabel.left(), widest);
  for (const char* const topic : {"ID", "Delete", "MainHelp", "Step1"}) {
    open(topic);
    int longest = popup.HelpTitle.width() + popup.CloseButton.width();
    for (const Label& link : popup.LinkLabel) longest = std::max(longest, link.width());
    const int body = site.textExtent(popup.HelpLabel.text(), popup.HelpLabel.font(), 0).width;
    longest = std::max(longest, body);
    EXPECT_LT(popup.width(), widest) << topic;
    EXPECT_GE(popup.width(), longest) << topic;
    EXPECT_LT(popup.width(), longest + 500) << topic;
  }
  open("Convention");
  EXPECT_EQ(popup.width(), widest) << "after a narrower one";
}

TEST_F(HelpPopup, ShowsLinksInsteadOfABodyOnTheMainPage) {
  open("MainHelp");
  EXPECT_EQ(popup.HelpTitle.text(), "Help");
  EXPECT_EQ(popup.HelpLabel.text(), "");
  const std::string captions[] = {"Comparing depreciation methods",
                                  "Entering assets without comparing methods",
                                  "Recalculating depreciation expense",
                                  "Printing the asset record",
                                  "Deleting a record",
                                  ""};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(popup.LinkLabel[i].text(), captions[i]);
    EXPECT_TRUE(popup.LinkLabel[i].visible());
  }
  const int line = popup.LinkLabel[0].height();
  for (std::size_t i = 1; i < 5; ++i) {
    EXPECT_EQ(popup.LinkLabel[i].top(), popup.LinkLabel[i - 1].top() + line + line / 2);
    EXPECT_EQ(popup.LinkLabel[i].left(), popup.HelpLabel.left());
  }
}

TEST_F(HelpPopup, OpensTheTopicOfAVisibleLink) {
  open("MainHelp");
  const std::string topics[] = {"Compare", "Enter", "Recalc", "Print", "Delete"};
  container.take();
  for (std::size_t i = 0; i < 5; ++i) {
    user.click(popup.LinkLabel[i]);
    EXPECT_THAT(container.take(), ElementsAre("FrontMe", "OpenNewMe " + topics[i]));
  }
  user.click(popup.LinkLabel[5]);
  EXPECT_THAT(container.take(), ElementsAre("FrontMe")) << "the sixth link leads nowhere";
}

TEST_F(HelpPopup, OpensNothingFromAHiddenLink) {
  open("Basis");
  container.take();
  for (Label& link : popup.LinkLabel) {
    EXPECT_EQ(link.text(), "");
    user.click(link);
    link.onClick();
  }
  EXPECT_THAT(container.take(), IsEmpty());
}

TEST_F(HelpPopup, HidesTheLinksAgainForAnotherTopic) {
  open("MainHelp");
  const int main_height = popup.height();
  open("ID");
  for (const Label& link : popup.LinkLabel) EXPECT_FALSE(link.visible());
  EXPECT_LT(popup.height(), main_height);
}

TEST_F(HelpPopup, StaysAsItWasForATopicThatTheCatalogueDoesNotHave) {
  for (const std::string known : {"Basis", "MainHelp"}) {
    open(known);
    const std::string title = popup.HelpTitle.text();
    const std::string body = popup.HelpLabel.text();
    const bool links = popup.LinkLabel[0].visible();
    for (const std::string unknown : {"Step", "", "basis", "Basis "}) {
      open(unknown);
      EXPECT_EQ(popup.HelpTitle.text(), title);
      EXPECT_EQ(popup.HelpLabel.text(), body);
      EXPECT_EQ(popup.LinkLabel[0].visible(), links);
    }
  }
}

TEST_F(HelpPopup, IsSizedAgainWhenResizedAndWhenClosed) {
  open("Basis");
  const Place sized = popup.place();
  container.take();
  popup.setSize(100, 100);
  EXPECT_EQ(popup.place(), sized);
  EXPECT_THAT(container.take(), ElementsAre("ResizedDisplay"));
  user.click(popup.CloseButton);
  EXPECT_THAT(container.take(), ElementsAre("FrontMe", "CloseMe", "ResizedDisplay"));
  EXPECT_FALSE(popup.visible());
}

TEST_F(HelpPopup, ComesToTheFrontWhereverItIsClicked) {
  open("Basis");
  container.take();
  for (Control* part :
       {static_cast<Control*>(&popup), static_cast<Control*>(&popup.HelpTitle),
        static_cast<Control*>(&popup.HelpLabel), static_cast<Control*>(&popup.BorderShape)}) {
    user.click(*part);
    EXPECT_THAT(container.take(), ElementsAre("FrontMe"));
  }
}

TEST_F(HelpPopup, MovesWhatIsDroppedOnIt) {
  Label dragged{container, "Dragged"};
  dragged.setPlace({10, 20, 300, 200});
  popup.DragDrop(dragged, 450, 600);
  EXPECT_EQ(dragged.place(), (Place{450, 600, 300, 200}));
}

TEST_F(HelpPopup, IsWhiteInADarkRedFrame) {
  EXPECT_EQ(popup.BorderShape.foreColour().value(), 0x02000066U);
  EXPECT_EQ(popup.backColour().value(), 0x02FFFFFFU);
}

TEST_F(HelpPopup, TakesTheHostsPalette) {
  int applied = 0;
  stage.setHostPalette([&](UserControl&) { ++applied; });
  Container another{stage};
  EXPECT_EQ(applied, 1);
}

}  // namespace
}  // namespace depcalc
