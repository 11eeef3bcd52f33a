// When a user control hears that it is shown, painted, resized and hidden.
#include "controls/user_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/report_error.h"
#include "controls/user.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Screen : UserControl {
  Screen(UserControl& parent, const std::string& name) : UserControl(parent, name) {}

  using UserControl::messageBox;
  using UserControl::SetupPalette;

  std::function<void()> on_paint;
  std::function<void()> on_show;

 private:
  void Paint() override {
    if (on_paint) on_paint();
  }
  void Show() override {
    if (on_show) on_show();
  }
};

struct Container : UserControl {
  explicit Container(Stage& stage) : UserControl(stage, "Container") { show(); }

  Screen one{*this, "One"};
  Screen two{*this, "Two"};
};

struct LifeCycle : ::testing::Test {
  LifeCycle() {
    stage.pumpPaint();
    trace.take();
  }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  Container container{stage};
};

TEST_F(LifeCycle, BeginsHiddenWithInitializeAndEndsWithTerminate) {
  {
    const Screen third(container, "Three");
    EXPECT_FALSE(third.visible());
  }
  EXPECT_THAT(trace.take(), ElementsAre("Three.Initialize", "Three.Terminate"));
  EXPECT_EQ(container.child("Three"), nullptr);
}

TEST_F(LifeCycle, ShowsAtOnceAndPaintsOnceAtIdle) {
  container.one.show();
  container.one.show();
  EXPECT_THAT(trace.take(), ElementsAre("One.Show"));
  stage.pumpPaint();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("One.Paint"));
}

TEST_F(LifeCycle, HidesAtOnceAndDropsThePaintDue) {
  container.one.show();
  container.one.hide();
  container.one.hide();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("One.Show", "One.Hide"));
}

TEST_F(LifeCycle, ShowsAgainAfterBeingHiddenWithOneMorePaint) {
  container.one.show();
  stage.pumpPaint();
  trace.take();
  container.one.hide();
  container.one.show();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("One.Hide", "One.Show", "One.Paint"));
}

TEST_F(LifeCycle, PaintsAgainOnlyWhenExposed) {
  container.one.show();
  stage.pumpPaint();
  trace.take();
  stage.expose();
  stage.pumpPaint();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("Container.Paint", "One.Paint"));
}

TEST_F(LifeCycle, PaintsWhatAPaintShows) {
  container.two.on_paint = [&] { container.one.show(); };
  container.two.show();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("Two.Show", "Two.Paint", "One.Show", "One.Paint"));
}

TEST_F(LifeCycle, KeepsThePaintOfAHiddenContainerUntilItShows) {
  container.hide();
  container.one.show();
  trace.take();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), IsEmpty());
  container.show();
  stage.pumpPaint();
  EXPECT_THAT(trace.take(), ElementsAre("Container.Show", "Container.Paint", "One.Paint"));
}

TEST_F(LifeCycle, ResizesWhatIsShownByAnotherSize) {
  container.one.setSize(100, 100);
  EXPECT_THAT(trace.take(), IsEmpty()) << "hidden";
  container.one.show();
  trace.take();
  container.one.setSize(100, 100);
  container.one.setPosition(5, 5);
  EXPECT_THAT(trace.take(), IsEmpty()) << "same size";
  container.one.setSize(200, 300);
  EXPECT_THAT(trace.take(), ElementsAre("One.Resize"));
  container.hide();
  trace.take();
  container.one.setSize(1, 1);
  EXPECT_THAT(trace.take(), IsEmpty()) << "inside something hidden";
}

TEST_F(LifeCycle, ShowsNothingTwiceWhenAShowHandlerShows) {
  container.one.on_show = [&] { container.one.show(); };
  container.one.show();
  EXPECT_THAT(trace.take(), ElementsAre("One.Show"));
}

TEST_F(LifeCycle, LeavesThePaletteAloneWithoutAHost) {
  container.one.SetupPalette();
  EXPECT_EQ(container.one.palette(), std::nullopt);
  EXPECT_EQ(container.one.paletteMode(), 0);
}

TEST_F(LifeCycle, TakesTheHostPalette) {
  const Palette palette{{Colour::rgb(102, 0, 0)}};
  stage.setHostPalette([&](UserControl& target) {
    target.setPalette(palette);
    target.setPaletteMode(2);
  });
  container.two.SetupPalette();
  EXPECT_EQ(container.two.palette(), palette);
  EXPECT_EQ(container.two.paletteMode(), 2);
  EXPECT_EQ(container.one.palette(), std::nullopt);
}

TEST_F(LifeCycle, ReportsAFailingPaletteUnderOneName) {
  std::vector<std::string> reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  stage.setHostPalette([](UserControl&) { throw RuntimeError::objectNotSet(); });
  container.two.SetupPalette();
  EXPECT_THAT(reports, ElementsAre("DepCalc::SetupPalette Error#91: Object variable or With "
                                   "block variable not set"));
}

TEST_F(LifeCycle, ShowsBoxesWithAndWithoutATitle) {
  EXPECT_EQ(container.one.messageBox("Done."), BoxAnswer::ok);
  site.answers = {BoxAnswer::cancel};
  EXPECT_EQ(container.one.messageBox("Save?", BoxButtons::yesNoCancel, "Save Changes"),
            BoxAnswer::cancel);
  EXPECT_THAT(site.takeBoxes(),
              ElementsAre(MessageBox{"Done.", BoxButtons::ok, "DepCalc10"},
                          MessageBox{"Save?", BoxButtons::yesNoCancel, "Save Changes"}));
}

}  // namespace
}  // namespace depcalc
