// The titles that the window manager shows.
#include <QProcess>
#include <QThread>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

struct Titles : RealWindow {
  Titles() {
    gui([this] { window.reset(); });
    program.start(DEPCALC_DESKTOP, {});
    RealUser::runs("xdotool", {"search", "--sync", "--onlyvisible", "--name",
                               "^Depreciation Calculator$", "windowactivate", "--sync"});
  }
  ~Titles() override {
    program.kill();
    program.waitForFinished();
  }

  /// Waits until another window than that of this title is the active one.
  static QString titleAfter(const QString& title) {
    QString active = title;
    for (int i = 0; i < 200 && active == title; ++i) {
      QThread::msleep(50);
      QString said;
      if (RealUser::runs("xdotool", {"getactivewindow", "getwindowname"}, &said) == 0) {
        active = said.trimmed();
      }
    }
    return active;
  }

  QProcess program;
};

TEST_F(Titles, ABoxHasItsOwnAlone) {
  user.keys({"alt+h", "a"});
  EXPECT_EQ(titleAfter("Depreciation Calculator").toStdString(), "About");
}

}  // namespace
}  // namespace depcalc::testing
