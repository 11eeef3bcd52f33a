// What a user is told of a change that the company file did not take, and what may be done then.
#include <sys/resource.h>

#include <QFile>
#include <QLabel>
#include <QStatusBar>
#include <csignal>
#include <memory>

#include "desktop/window/system_end.h"
#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// As long as it lives no file grows beyond a size that is less than a company has.
class FullDisk {
 public:
  FullDisk() {
    ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 16'384;
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

/// A company with one asset, and a second one in the form.
struct FailedSave : RealWindow {
  void SetUp() override {
    makeCompany(path(), "id,placed_in_service,life,method,basis\nA1,1/15/2023,5,SL,1000\n");
    openCompany(path());
    enter("A2");
  }

  void enter(const char* id) {
    click(assets().NewButton.normal);
    ASSERT_EQ(shown(), "DepCalcCtl1");
    enterAsset({id, "Truck", "1FTYR10D", "Warehouse", "9/15/2023", "", "5", "", "38450", "4000",
                "150000"});
  }

  /// Saves the asset in the form; the box that comes up.
  SeenDialog save() {
    user.key("alt+s");
    return user.dialog();
  }

  /// Waits until the next save has come to its end.
  void expectSaved(const QString& company, std::initializer_list<const char*> ids) {
    EXPECT_TRUE(user.seesNoDialog());
    EXPECT_EQ(shown(), "DepCalcView1");
    const std::vector<std::string> expected(ids.begin(), ids.end());
    EXPECT_EQ(idsIn(company), expected);
  }

  std::string note() {
    return gui([this] {
      return window->statusBar()->findChildren<QLabel*>().at(1)->text().toStdString();
    });
  }
  std::string openPath() {
    return gui([this] { return window->company()->path(); });
  }
};

TEST_F(FailedSave, IsToldAndTriedAgain) {
  {
    const FullDisk full;
    const SeenDialog box = save();
    EXPECT_EQ(box.title, "Change Not Saved");
    EXPECT_THAT(box.text.toStdString(), HasSubstr("The last change could not be saved."));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("cannot be written"));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("Nothing was changed"));
    EXPECT_THAT(box.buttons,
                ::testing::UnorderedElementsAre("Try Again", "Save a Copy As…", "Close"));
    EXPECT_TRUE(user.answers("Try Again"));
    EXPECT_EQ(user.dialog().title, "Change Not Saved") << "still full";
  }
  EXPECT_THAT(idsIn(path()), ElementsAre("A1"));
  EXPECT_TRUE(user.answers("Try Again"));
  expectSaved(path(), {"A1", "A2"});
  EXPECT_EQ(note(), "");
}

TEST_F(FailedSave, IsGivenUpOnlyByAnExpressYes) {
  {
    const FullDisk full;
    EXPECT_EQ(save().title, "Change Not Saved");
    for (const char* way_back : {"Escape", "No"}) {
      EXPECT_TRUE(user.answers("Close"));
      EXPECT_EQ(user.dialog().text, "Give up this change?");
      if (*way_back == 'E') {
        user.key("Escape");
      } else {
        EXPECT_TRUE(user.answers("No"));
      }
      EXPECT_EQ(user.dialog().title, "Change Not Saved") << way_back;
    }
    user.key("Escape");
    EXPECT_EQ(user.dialog().text, "Give up this change?");
    EXPECT_TRUE(user.answers("Yes"));
    EXPECT_TRUE(user.seesNoDialog()) << "told once";
  }
  EXPECT_EQ(note(), "The last change was not saved");
  EXPECT_THAT(idsIn(path()), ElementsAre("A1"));
  EXPECT_EQ(gui([this] { return window->calculator()->assetCount(); }), 1) << "as the file has it";
  gui([this] { window->setCompanyInfo({"Other", 4, false}); });
  EXPECT_EQ(note(), "") << "a change that was saved";
}

TEST_F(FailedSave, GoesIntoACopyThatTheWindowGoesOnWith) {
  {
    const FullDisk full;
    EXPECT_EQ(save().title, "Change Not Saved");
    EXPECT_TRUE(user.answers("Save a Copy As…"));
    EXPECT_EQ(user.dialog().kind, "QFileDialog");
    user.key("Escape");
    EXPECT_EQ(user.dialog().title, "Change Not Saved");
    EXPECT_TRUE(user.answers("Save a Copy As…"));
    user.choosesFile(path("copy"));
    EXPECT_EQ(user.dialog().title, "Change Not Saved") << "the copy needs room, too";
    EXPECT_FALSE(QFile::exists(path("copy.company")));
  }
  EXPECT_TRUE(user.answers("Save a Copy As…"));
  user.choosesFile(path("copy"));
  expectSaved(path("copy.company"), {"A1", "A2"});
  EXPECT_EQ(openPath(), path("copy.company").toStdString());
  EXPECT_EQ(gui([this] { return settings->lastCompany(); }), path("copy.company"));
  EXPECT_THAT(idsIn(path()), ElementsAre("A1"));
  EXPECT_EQ(depcalc({"check", path()}), 0) << "the first file is free";
  EXPECT_EQ(depcalc({"check", path("copy.company")}), 4) << "the copy is not";
}

TEST_F(FailedSave, OfAFileThatWasTakenAwayGoesIntoACopy) {
  ASSERT_EQ(RealUser::runs("mv", {path(), path("elsewhere.company")}), 0);
  const SeenDialog box = save();
  EXPECT_THAT(box.text.toStdString(), HasSubstr("is no longer there"));
  EXPECT_TRUE(user.answers("Save a Copy As…"));
  user.choosesFile(path("copy.company"));
  expectSaved(path("copy.company"), {"A1", "A2"});
  EXPECT_FALSE(QFile::exists(path()));
  EXPECT_THAT(idsIn(path("elsewhere.company")), ElementsAre("A1"));
}

TEST_F(FailedSave, OfAFileThatIsPutBackIsTriedAgain) {
  ASSERT_EQ(RealUser::runs("mv", {path(), path("elsewhere.company")}), 0);
  EXPECT_THAT(save().text.toStdString(), HasSubstr("is no longer there"));
  ASSERT_EQ(RealUser::runs("mv", {path("elsewhere.company"), path()}), 0);
  EXPECT_TRUE(user.answers("Try Again"));
  expectSaved(path(), {"A1", "A2"});
}

/// What is held in the box has not been saved, whatever the form says of itself.
TEST_F(FailedSave, IsNotLostWhereTheSystemEndsTheProgram) {
  std::unique_ptr<desktop::SystemEnd> end;
  gui([&] {
    end = std::make_unique<desktop::SystemEnd>(*window, desktop::SystemEnd::usual_patience, [] {});
  });
  {
    const FullDisk full;
    EXPECT_EQ(save().title, "Change Not Saved");
    EXPECT_FALSE(gui([&] { return end->sessionMayEnd(); }));
    gui([&] { end->hear(false); });
    user.settles();
    EXPECT_EQ(user.dialog().title, "Change Not Saved");
    EXPECT_TRUE(user.answers("Close"));
    EXPECT_EQ(user.dialog().text, "Give up this change?");
    user.settles();
    EXPECT_EQ(user.dialog().text, "Give up this change?");
    EXPECT_TRUE(user.answers("No"));
    EXPECT_EQ(user.dialog().title, "Change Not Saved");
  }
  EXPECT_TRUE(user.answers("Try Again"));
  EXPECT_TRUE(user.sees([this] { return !window->isVisible(); })) << "and then it ends";
  EXPECT_THAT(idsIn(path()), ElementsAre("A1", "A2"));
  gui([&] { end.reset(); });
}

struct SavedCopy : RealWindow {
  void SetUp() override {
    makeCompany(path(), "id,placed_in_service,life,method,basis\nA1,1/15/2023,5,SL,1000\n");
    openCompany(path());
  }
};

TEST_F(SavedCopy, LeavesTheOpenCompanyAsItIs) {
  menu("Save a Copy As…");
  user.choosesFile(path("copy.company"));
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path("copy.company")), ElementsAre("A1"));
  EXPECT_EQ(depcalc({"check", path("copy.company")}), 0) << "nobody holds the copy";
  EXPECT_EQ(depcalc({"check", path()}), 4);
  menu("Save a Copy As…");
  user.choosesFile(path("copy.company"));
  EXPECT_THAT(user.dialog().text.toStdString(), HasSubstr("exists"));
  user.key("Return");
  EXPECT_TRUE(user.seesNoDialog());
}

}  // namespace
}  // namespace depcalc::testing
