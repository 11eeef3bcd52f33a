// The program as the system ends it: by signals, with and without an unsaved asset.
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>

#include "tests/desktop/real/real_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace depcalc::testing {
namespace {

using ::testing::IsEmpty;

struct Ending : ::testing::Test {
  Ending() {
    QDir().mkpath(data());
    qputenv("XDG_DATA_HOME", data().toUtf8());
    EXPECT_EQ(depcalc({"new", company(), "--name", "Sample Joinery", "--first-month", "April"}), 0);
    program.start(QStringLiteral(DEPCALC_DESKTOP), {company()});
    EXPECT_TRUE(program.waitForStarted());
    EXPECT_TRUE(sees("^Sample Joinery – Depreciation Calculator$")) << "the window";
    EXPECT_TRUE(QFile::exists(journal())) << "left behind by a program that is killed";
    EXPECT_EQ(copies().size(), 1) << "set aside";
  }
  ~Ending() override {
    program.kill();
    program.waitForFinished();
  }

  [[nodiscard]] QString company() const { return directory.filePath("joinery.company"); }
  [[nodiscard]] QString journal() const { return company() + "-journal"; }
  [[nodiscard]] QString data() const { return directory.filePath("data"); }
  /// What is set aside, and backups.
  [[nodiscard]] QStringList copies() const {
    QStringList found;
    const QDir root(data() + "/depcalc/backups");
    for (const QString& folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      found += QDir(root.filePath(folder)).entryList({"*.company", "opening-*"}, QDir::Files);
    }
    return found;
  }
  int depcalc(const QStringList& arguments) {
    return RealUser::runs(QStringLiteral(DEPCALC_COMMAND), arguments, &said);
  }
  /// Waits for a window of that title and gives it the keys.
  static bool sees(const char* title) {
    for (int i = 0; i < 400; ++i, QThread::msleep(50)) {
      if (!isThere(title)) continue;
      if (xdotool({"search", "--onlyvisible", "--name", title, "windowactivate", "--sync"}) == 0) {
        QThread::msleep(200);
        return true;
      }
    }
    return false;
  }
  static bool isThere(const char* title) {
    return xdotool({"search", "--onlyvisible", "--name", title}) == 0;
  }
  static bool seesGone(const char* title) {
    for (int i = 0; i < 400; ++i, QThread::msleep(50)) {
      if (!isThere(title)) return true;
    }
    return false;
  }
  static int xdotool(const QStringList& arguments) { return RealUser::runs("xdotool", arguments); }
  void send(int signal) const {
    EXPECT_EQ(::kill(static_cast<pid_t>(program.processId()), signal), 0);
  }
  void expectEnded() {
    ASSERT_TRUE(program.state() == QProcess::NotRunning || program.waitForFinished(20'000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_FALSE(QFile::exists(journal()));
  }
  void typeAnAsset() {
    xdotool({"type", "--delay", "10", "A-1"});
    QThread::msleep(200);
  }
  QString ids() {
    EXPECT_EQ(depcalc({"list", company(), "--format", "csv"}), 0) << said.toStdString();
    return said.section(u'\n', 1).section(u',', 0, 0);
  }

  QTemporaryDir directory;
  QProcess program;
  QString said;
};

constexpr const char* question = "^Save Changes";

TEST_F(Ending, IsSilentWhereNothingIsUnsaved) {
  send(SIGTERM);
  expectEnded();
  EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(Ending, IsTheSameByEachSignal) {
  for (const int signal : {SIGINT, SIGHUP}) {
    send(signal);
    expectEnded();
    EXPECT_THAT(copies(), IsEmpty());
    program.start(QStringLiteral(DEPCALC_DESKTOP), {company()});
    ASSERT_TRUE(sees("^Sample Joinery – Depreciation Calculator$"));
  }
}

TEST_F(Ending, CancelsTheDialogThatIsOpen) {
  xdotool({"key", "ctrl+o"});
  ASSERT_TRUE(sees("^Open Company"));
  send(SIGTERM);
  expectEnded();
}

TEST_F(Ending, AsksWhereTheUserLooksAndSaves) {
  typeAnAsset();
  xdotool({"getactivewindow", "windowminimize"});
  ASSERT_TRUE(seesGone("^Sample Joinery"));
  send(SIGTERM);
  ASSERT_TRUE(sees(question));
  EXPECT_TRUE(isThere("^Sample Joinery")) << "behind the question";
  RealUser::runs("xdotool", {"getactivewindow", "getwindowname"}, &said);
  EXPECT_TRUE(said.startsWith("Save Changes")) << said.toStdString();
  if (!qEnvironmentVariableIsEmpty("DEPCALC_SHOTS")) {
    RealUser().photographs(qEnvironmentVariable("DEPCALC_SHOTS") + "/system-end.png");
  }
  xdotool({"key", "alt+y"});
  expectEnded();
  EXPECT_EQ(ids().trimmed(), "A-1");
  EXPECT_EQ(copies().size(), 1) << "a backup from before the change";
  EXPECT_THAT(copies().filter("opening-"), IsEmpty());
}

TEST_F(Ending, IsCalledOffByEscape) {
  typeAnAsset();
  for (int i = 0; i < 2; ++i) {
    send(SIGTERM);
    ASSERT_TRUE(sees(question));
    xdotool({"key", "Escape"});
    ASSERT_TRUE(seesGone(question));
    EXPECT_EQ(program.state(), QProcess::Running);
    EXPECT_TRUE(QFile::exists(journal())) << "still open";
  }
}

TEST_F(Ending, ASecondTimeLeavesNothingBehind) {
  typeAnAsset();
  send(SIGTERM);
  send(SIGHUP);
  ASSERT_TRUE(sees(question));
  send(SIGHUP);
  QThread::msleep(300);
  EXPECT_TRUE(isThere(question)) << "a signal that comes behind the first is no second one";
  send(SIGTERM);
  expectEnded();
  EXPECT_THAT(copies(), IsEmpty());
  EXPECT_EQ(ids().trimmed(), "");
}

/// The calculator's start alone writes to the file.
TEST_F(Ending, AnOpeningWithoutAChangeNeverBecomesABackup) {
  for (int i = 0; i < 3; ++i) {
    send(SIGKILL);
    ASSERT_TRUE(program.waitForFinished(20'000));
    program.start(QStringLiteral(DEPCALC_DESKTOP), {company()});
    ASSERT_TRUE(sees("^Sample Joinery – Depreciation Calculator$"));
    EXPECT_THAT(copies().filter(".company"), IsEmpty());
    EXPECT_EQ(copies().size(), 1);
  }
}

/// Half a minute, as a user has it.
TEST_F(Ending, NoAnswerLeavesNothingBehind) {
  typeAnAsset();
  QElapsedTimer waited;
  waited.start();
  send(SIGTERM);
  ASSERT_TRUE(program.waitForFinished(120'000));
  EXPECT_GE(waited.elapsed(), 30'000) << "milliseconds that the user had";
  expectEnded();
  EXPECT_THAT(copies(), IsEmpty());
  EXPECT_EQ(ids().trimmed(), "");
}

}  // namespace
}  // namespace depcalc::testing
