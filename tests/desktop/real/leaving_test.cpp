// Leaving the window and coming back to it, with something typed that is not saved.
#include <QWidget>

#include "desktop/window/dark_palette.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Leaving : RealWindow {
  Leaving() {
    newCompany();
    user.types("A-1");
  }

  void expectQuestion() {
    const SeenDialog box = user.dialog();
    EXPECT_EQ(box.title, "Save Changes");
    EXPECT_EQ(box.text,
              "You have not saved your changes to this asset. Would you like to save your changes "
              "now?");
    EXPECT_EQ(box.buttons.size(), 3) << box.buttons.join(' ').toStdString();
  }
  bool isOpen() {
    return gui([this] { return window->isVisible() && window->company() != nullptr; });
  }
};

TEST_F(Leaving, EscapeAndTheCrossOfTheQuestionLeadBack) {
  for (const char* way_back : {"Escape", "alt+F4"}) {
    for (const char* way_out : {"ctrl+q", "alt+F4", "ctrl+w"}) {
      user.key(way_out);
      expectQuestion();
      user.key(way_back);
      ASSERT_TRUE(user.seesNoDialog());
      ASSERT_TRUE(isOpen()) << way_out << ' ' << way_back;
      EXPECT_EQ(text(&DepCalcCtl::IDText), "A-1");
    }
  }
  EXPECT_THAT(idsIn(path()), IsEmpty());
}

TEST_F(Leaving, YesSavesAndTheProgramEnds) {
  user.key("ctrl+q");
  expectQuestion();
  ASSERT_TRUE(user.answers("Yes"));
  EXPECT_TRUE(user.sees([this] { return !window->isVisible(); }));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path()), ElementsAre("A-1"));
}

TEST_F(Leaving, NoSavesNothingAndTheProgramEnds) {
  user.key("ctrl+q");
  ASSERT_TRUE(user.answers("No"));
  EXPECT_TRUE(user.sees([this] { return !window->isVisible(); }));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path()), IsEmpty());
}

/// Save is refused, and the field that the message names holds what is typed next.
struct Returning : Leaving {
  Returning() {
    user.key("alt+s");
    EXPECT_EQ(user.dialog().title.toStdString(), "Placed-in-service Date");
    user.key("Return");
    EXPECT_TRUE(user.seesNoDialog());
    user.types("3/1/20");
  }

  void expectTyped(const char* after) {
    user.settles();
    EXPECT_EQ(text(&DepCalcCtl::IDText), "A-1") << after;
    EXPECT_EQ(text(&DepCalcCtl::StartDateText), "3/1/20") << after;
  }
  void xdotool(const QStringList& arguments) {
    const QString id = QString::number(gui([this] { return window->winId(); }));
    ASSERT_EQ(RealUser::runs("xdotool", QStringList{arguments[0], id} + arguments.mid(1)), 0);
  }
};

TEST_F(Returning, FindsWhatWasTypedBehindTheTaskBar) {
  xdotool({"windowminimize"});
  EXPECT_TRUE(user.sees([this] { return window->isMinimized(); }));
  xdotool({"windowactivate"});
  EXPECT_TRUE(user.sees([this] { return !window->isMinimized() && window->isActiveWindow(); }));
  expectTyped("minimising");
  user.key("Tab");
  EXPECT_EQ(text(&DepCalcCtl::StartDateText), "03/01/2020");
}

TEST_F(Returning, FindsWhatWasTypedWhereTheWindowWasCoveredMovedAndResized) {
  QWidget* const other = gui([this] {
    auto* const cover = new QWidget;
    cover->setGeometry(window->frameGeometry().adjusted(-20, -20, 20, 20));
    cover->show();
    cover->activateWindow();
    return cover;
  });
  EXPECT_TRUE(user.sees([other] { return other->isActiveWindow(); }));
  gui([other] { delete other; });
  EXPECT_TRUE(user.sees([this] { return window->isActiveWindow(); }));
  expectTyped("covering");
  xdotool({"windowmove", "130", "90"});
  expectTyped("moving");
  xdotool({"windowsize", "700", "480"});
  expectTyped("resizing");
  gui([this] { window->showMaximized(); });
  EXPECT_TRUE(user.sees([this] { return window->isMaximized(); }));
  gui([this] { window->showNormal(); });
  expectTyped("maximising");
}

TEST_F(Returning, FindsWhatWasTypedAtAnotherZoomAndInOtherColours) {
  user.key("ctrl+plus");
  EXPECT_TRUE(user.sees([this] { return settings->zoom() > 100; }));
  expectTyped("zooming");
  const QPalette light = gui([] { return QApplication::palette(); });
  gui([] { QApplication::setPalette(desktop::darkPalette()); });
  expectTyped("darkness");
  gui([&] { QApplication::setPalette(light); });
  expectTyped("light");
}

}  // namespace
}  // namespace depcalc::testing
