// Backups in the place of companies, by the user's hand.
#include <sys/stat.h>

#include <QFile>
#include <QListWidget>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// A closed company of one asset with one backup, and a second asset since.
struct Restoring : RealWindow {
  void SetUp() override {
    makeCompany(path(), "id,placed_in_service,life,method,basis\nA1,1/15/2023,5,SL,1000\n");
    openCompany(path());
    gui([this] { window->setCompanyInfo({"Renamed", 4, false}); });
    gui([this] { window->closeCompany(); });
    QFile csv(path("more.csv"));
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write("id,placed_in_service,life,method,basis\nB1,1/15/2023,5,SL,1000\n");
    csv.close();
    ASSERT_EQ(depcalc({"import", path(), path("more.csv")}), 0) << said.toStdString();
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0664), 0);
  }

  /// An asset's ID is another one, and nothing else.
  void damage() {
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    bytes.replace(R"("AID":"B1")", R"("AID":"B2")");
    file.seek(0);
    file.write(bytes);
  }

  /// The lines of the dialog that lists the backups.
  QStringList listed() {
    return gui([] {
      QStringList lines;
      auto* const list = QApplication::activeModalWidget()->findChild<QListWidget*>("Backups");
      for (int i = 0; list != nullptr && i < list->count(); ++i) lines << list->item(i)->text();
      return lines;
    });
  }

  void expectRestored() {
    EXPECT_TRUE(user.seesNoDialog());
    EXPECT_THAT(idsIn(path()), ElementsAre("A1"));
    EXPECT_EQ(gui([this] { return window->company()->path(); }), path().toStdString());
    struct stat file {};
    ASSERT_EQ(::stat(path().toUtf8().constData(), &file), 0);
    EXPECT_EQ(file.st_mode & 0777, mode_t{0664});
  }
};

TEST_F(Restoring, IsOfferedWhereTheCompanyIsDamaged) {
  damage();
  user.key("ctrl+o");
  user.choosesFile(path());
  const SeenDialog box = user.dialog();
  EXPECT_THAT(box.text.toStdString(), HasSubstr("is damaged"));
  EXPECT_THAT(box.text.toStdString(),
              HasSubstr("You can replace it with a backup of this company."));
  EXPECT_TRUE(user.answers("Restore Backup…"));
  EXPECT_EQ(user.dialog().title, "Restore Backup");
  ASSERT_EQ(listed().size(), 1);
  EXPECT_TRUE(listed().front().endsWith("1 asset")) << listed().front().toStdString();
  EXPECT_TRUE(user.answers("Restore"));
  expectRestored();
}

TEST_F(Restoring, AsksForTheCompanyWhereNoneIsOpen) {
  menu("Restore Backup…");
  EXPECT_EQ(user.dialog().kind, "QFileDialog");
  user.choosesFile(path());
  EXPECT_EQ(user.dialog().title, "Restore Backup");
  EXPECT_TRUE(user.answers("Restore"));
  expectRestored();
  menu("Restore Backup…");
  EXPECT_EQ(user.dialog().title, "Restore Backup") << "of the one that is open";
  ASSERT_EQ(listed().size(), 2);
  EXPECT_TRUE(listed().front().endsWith("2 assets")) << listed().front().toStdString();
}

TEST_F(Restoring, TakesNothingFromAnotherProgramThatHasTheCompany) {
  const desktop::Backup backup = gui([this] { return backups->of(path()).front(); });
  openCompany(path());
  desktop::StoredCompanies others([] { return Date::strict(2024, 6, 15); });
  EXPECT_THROW((void)others.hold(path().toStdString()), desktop::CompanyFileError);
  gui([this] { window->closeCompany(); });
  EXPECT_NE(others.hold(path().toStdString()), nullptr);
  EXPECT_EQ(others.hold(path("none.company").toStdString()), nullptr);
  EXPECT_EQ(others.assetsIn(backup.path.toStdString()), 1);
}

}  // namespace
}  // namespace depcalc::testing
