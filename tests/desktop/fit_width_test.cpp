// View > Fit Width.
#include "desktop/window/fit_width.h"

#include <QScrollBar>
#include <cmath>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

constexpr Place form_place{0, 0, 13500, 7050};
constexpr Place form_with_help{0, 0, 18485, 7050};

int zoomFor(const QSize& room, const Place& screen, const Place& with_help, double dpi = 96) {
  return desktop::fittingZoom({room, 14, dpi / 1440, screen, with_help});
}

TEST(FittingZoom, FillsTheWidthAndLeavesRoomForHelp) {
  struct Case {
    QSize room;
    int zoom;
    int with_help;
  };
  for (const auto& [room, zoom, with_help] : {
           Case{{640, 500}, 75, 75},      // never below what can be read
           Case{{800, 500}, 84, 75},      // the form alone
           Case{{940, 600}, 100, 75},     // not larger for the help to make it smaller
           Case{{1280, 760}, 100, 100},   // both
           Case{{2560, 1400}, 200, 200},  //
           Case{{5120, 2800}, 300, 300},  // within the bounds
           Case{{2560, 700}, 134, 134},   // no larger than the height allows
           Case{{2560, 400}, 100, 100},   // which makes nothing smaller
       }) {
    EXPECT_EQ(zoomFor(room, form_place, form_place), zoom) << room.width();
    EXPECT_EQ(zoomFor(room, form_place, form_with_help), with_help) << room.width();
  }
}

TEST(FittingZoom, GivesTheUsualTextWholePixelsThatItsLabelsHaveRoomFor) {
  for (const double dpi : {96.0, 120.0, 144.0, 192.0}) {
    for (int width = 700; width < 4000; width += 7) {
      const int zoom = zoomFor({width, 3000}, form_place, form_place, dpi);
      if (zoom == desktop::minimum_zoom) continue;
      const double text = 9 * dpi / 72 * zoom / 100;
      EXPECT_LT(text - std::floor(text), text / zoom) << width << " at " << dpi;
      const int wide = static_cast<int>(form_place.width * dpi / 1440 * zoom / 100);
      EXPECT_LE(wide, width);
    }
  }
}

TEST(FittingZoom, MakesARegisterSmallerOnlyAsLongAsItFits) {
  const auto registerOf = [](int assets) { return Place{0, 0, 2000 + 1200 * assets, 7050}; };
  EXPECT_EQ(zoomFor({1280, 760}, registerOf(8), registerOf(8)), 100);
  EXPECT_EQ(zoomFor({1280, 760}, registerOf(16), registerOf(16)), 84);
  EXPECT_EQ(zoomFor({1280, 760}, registerOf(60), registerOf(60)), 100) << "to be scrolled";
}

TEST(FittingZoom, KnowsThatAScrollBarTakesRoom) {
  const Place high{0, 0, 20000, 30000};
  const Place low{0, 0, 20000, 7050};
  EXPECT_EQ(zoomFor({1228, 760}, low, low), 92);
  EXPECT_EQ(zoomFor({1228, 760}, high, high), 84);
}

struct FitWidth : WindowTest {
  FitWidth() { newCompany(); }

  void resize(int width, int height) {
    window.resize(width, height);
    settle();
  }
  int zoom() { return calculator().surface().scale().zoom(); }
  std::vector<std::string> checkedSteps() {
    std::vector<std::string> texts;
    for (const QAction* step : action("Zoom").menu()->actions()) {
      if (step->isChecked()) texts.push_back(step->text().toStdString());
    }
    return texts;
  }
};

TEST_F(FitWidth, IsWhatANewUserHas) {
  EXPECT_TRUE(settings.fitWidth());
  EXPECT_TRUE(action("Fit Width").isChecked());
  EXPECT_TRUE(checkedSteps().empty());
  for (const int width : {800, 1280, 2560}) {
    resize(width, 1200);
    EXPECT_EQ(window.page().horizontalScrollBar()->maximum(), 0) << width;
    EXPECT_EQ(zoom(), width == 800 ? 84 : width == 1280 ? 100 : 200);
  }
}

TEST_F(FitWidth, AndAStepOfTheZoomExcludeOneAnother) {
  resize(2560, 1200);
  action("125 %").trigger();
  EXPECT_EQ(zoom(), 125);
  EXPECT_FALSE(action("Fit Width").isChecked());
  EXPECT_THAT(checkedSteps(), ::testing::ElementsAre("125 %"));
  resize(1280, 800);
  EXPECT_EQ(zoom(), 125) << "the window's width is nothing to it";
  action("Fit Width").trigger();
  EXPECT_EQ(zoom(), 100);
  EXPECT_TRUE(checkedSteps().empty());
  action("Zoom In").trigger();
  EXPECT_EQ(zoom(), 125) << "from what was seen";
  action("Fit Width").trigger();
  action("Fit Width").trigger();
  EXPECT_EQ(zoom(), 125) << "as before";
  action("Fit Width").trigger();
  action("Actual Size").trigger();
  EXPECT_EQ(zoom(), 100);
}

TEST_F(FitWidth, IsKeptAsTheUserLeftIt) {
  action("Zoom In").trigger();
  EXPECT_FALSE(desktop::Settings(directory.filePath("settings.ini")).fitWidth());
  action("Fit Width").trigger();
  EXPECT_TRUE(desktop::Settings(directory.filePath("settings.ini")).fitWidth());
  QSettings older(directory.filePath("older.ini"), QSettings::IniFormat);
  older.setValue("view/zoom", 150);
  older.sync();
  EXPECT_FALSE(desktop::Settings(directory.filePath("older.ini")).fitWidth())
      << "who has chosen a zoom keeps it";
}

TEST_F(FitWidth, ShowsTheFormAndItsHelpTogetherInASmallWindow) {
  resize(950, 700);
  ASSERT_EQ(zoom(), 100);
  click(form().AIDLabel);
  EXPECT_LT(zoom(), 100);
  EXPECT_EQ(window.page().horizontalScrollBar()->maximum(), 0);
  key(Qt::Key_Escape);
  EXPECT_EQ(zoom(), 100);
}

TEST_F(FitWidth, PutsThePageInTheMiddle) {
  for (const int width : {1000, 1280, 2560}) {
    resize(width, 900);
    const QWidget& page = *window.page().viewport();
    const QRect shown(widget(form()).mapTo(&page, QPoint()), widget(form()).size());
    EXPECT_NEAR(shown.center().x(), page.rect().center().x(), 1) << width;
  }
}

}  // namespace
}  // namespace depcalc::testing
