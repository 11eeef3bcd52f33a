// What a user does in dialogs leaves the lock of the open company where it is.
#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;

/// Whether SQLite, in this process, has the file at a descriptor for itself. The descriptor stays
/// open: to close it would do what is looked for.
bool sqliteHolds(int descriptor) {
  struct flock probe {};
  probe.l_type = F_WRLCK;
  probe.l_whence = SEEK_SET;
  probe.l_start = 0x4000'0002;
  probe.l_len = 510;
  return ::fcntl(descriptor, F_OFD_GETLK, &probe) == 0 && probe.l_type == F_WRLCK;
}

/// A company with one asset, open in the window, and other files beside it.
struct DialogsOverACompany : RealWindow {
  void SetUp() override {
    write("more.csv", "id,placed_in_service,life,method,basis\nB1,1/15/2023,5,SL,1000\n");
    write("text.company", "no company at all");
    makeCompany(path(), "id,placed_in_service,life,method,basis\nA1,1/15/2023,5,SL,1000\n");
    openCompany(path());
    descriptor_ = ::open(path().toUtf8().constData(), O_RDWR | O_CLOEXEC);
    ASSERT_TRUE(sqliteHolds(descriptor_));
  }
  void TearDown() override { ::close(descriptor_); }

  void write(const char* name, const char* content) const {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  /// Another program would take the company where nothing but SQLite's lock kept it out.
  void expectLocked(const std::string& after) {
    EXPECT_TRUE(sqliteHolds(descriptor_)) << after;
    EXPECT_EQ(depcalc({"import", path(), path("more.csv")}), exit_locked) << after;
    EXPECT_THAT(said.toStdString(), HasSubstr("is in use by")) << after;
  }

  /// The file dialog is there and has all files of the folder in its list, with their types.
  void waitForFiles(const std::string& after) {
    EXPECT_EQ(user.dialog().kind, "QFileDialog") << after;
    EXPECT_TRUE(user.sees([] {
      auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      auto* const files = dialog == nullptr ? nullptr : dialog->findChild<QFileSystemModel*>();
      if (files == nullptr) return false;
      const QModelIndex folder = files->index(dialog->directory().path());
      bool typed = files->rowCount(folder) > 0;
      for (int row = 0; row < files->rowCount(folder); ++row) {
        typed = typed && !files->index(row, 2, folder).data().toString().isEmpty();
      }
      return typed;
    })) << after;
  }

  void leave(const std::string& after) {
    waitForFiles(after);
    user.key("Escape");
    EXPECT_TRUE(user.seesNoDialog()) << after;
    expectLocked(after + ", Escape");
  }

  static constexpr int exit_locked = 4;
  int descriptor_ = -1;
};

TEST_F(DialogsOverACompany, LeaveItsLockWhenTheyAreCancelled) {
  for (const char* item : {"Open Company…", "New Company…", "Save a Copy As…"}) {
    menu(item);
    leave(item);
    menu(item);
    waitForFiles(item);
    EXPECT_TRUE(user.answers("Cancel")) << item;
    expectLocked(std::string(item) + ", Cancel");
  }
  click(assets().PrintButton.normal);
  leave("the Print button without a printer");
}

TEST_F(DialogsOverACompany, LeaveItsLockInTheFileThatTheyMake) {
  menu("Save a Copy As…");
  waitForFiles("copy");
  user.choosesFile(path("copy.company"));
  EXPECT_TRUE(user.seesNoDialog());
  expectLocked("save a copy");
  click(assets().PrintButton.normal);
  waitForFiles("print");
  user.choosesFile(path("schedule.pdf"));
  EXPECT_TRUE(user.sees([this] { return QFile::exists(path("schedule.pdf")); }));
  expectLocked("print into a file");
}

TEST_F(DialogsOverACompany, LeaveItsLockWhenWhatTheyAnswerIsRefused) {
  menu("Open Company…");
  waitForFiles("open");
  user.choosesFile(path("text.company"));
  EXPECT_THAT(user.dialog().text.toStdString(), HasSubstr("is not a company file"));
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
  expectLocked("open what is no company");
  EXPECT_EQ(gui([this] { return window->company()->path(); }), path().toStdString());
}

TEST_F(DialogsOverACompany, LeaveItsLockInTheCompanyThatTheyOpen) {
  menu("Open Company…");
  waitForFiles("open");
  user.choosesFile(path());
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_TRUE(sqliteHolds(descriptor_));
  expectLocked("open the same one");
}

/// Somebody in this process reads the file nevertheless: a save is not lost, nor the other's.
TEST_F(DialogsOverACompany, MayEvenDropTheLock) {
  ::close(::open(path().toUtf8().constData(), O_RDONLY | O_CLOEXEC));
  ASSERT_FALSE(sqliteHolds(descriptor_));
  EXPECT_EQ(depcalc({"import", path(), path("more.csv")}), exit_locked);
  gui([this] { window->setCompanyInfo({"Renamed", 4, false}); });
  expectLocked("a change");
}

}  // namespace
}  // namespace depcalc::testing
