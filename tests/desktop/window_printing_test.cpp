// Printing from the window: the Print button, File > Print and the preview.
#include <QLineEdit>
#include <QPrintDialog>

#include "tests/desktop/assets_in_memory.h"
#include "tests/desktop/modal_steps.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr int first_too_many_for_a4 = 50;

struct WindowPrinting : WindowTest {
  WindowPrinting() { boxes.answering = false; }

  /// There is no printer here: who prints names a PDF file.
  void openRegister(int assets) {
    newCompany();
    window.closeCompany();
    const auto& file = companies.companies.at(path().toStdString()).file;
    file->reopen();
    addAssets(file, assets);
    ASSERT_TRUE(window.openCompany(path()));
    settle();
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  void pressPrint() {
    click(assets().PrintButton.normal);
    EXPECT_TRUE(steps.done());
    EXPECT_FALSE(assets().PrintButton.pressed.visible());
    EXPECT_EQ(shown(), "DepCalcView1");
  }
  bool isPdf(const char* name) {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) && file.read(4) == "%PDF";
  }

  ModalSteps steps;
};

const char* const missing_eight =
    "Print | On this paper, the last 8 of the 50 assets would not be printed. All of them fit in "
    "landscape.";

TEST_F(WindowPrinting, CancellingTheFileEndsWithoutAWord) {
  openRegister(3);
  const QString noted = status(1);
  steps.thenCancel();
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(), IsEmpty());
  EXPECT_EQ(status(1).toStdString(), noted.toStdString());
  steps.thenChooseFile(path("after.pdf"));
  pressPrint();
  EXPECT_TRUE(isPdf("after.pdf")) << "the next job is one of its own";
}

TEST_F(WindowPrinting, AFilesNameGetsItsSuffix) {
  openRegister(3);
  steps.thenChooseFile(path("Schedule 2.1"));
  pressPrint();
  EXPECT_TRUE(isPdf("Schedule 2.1.pdf"));
  EXPECT_FALSE(QFile::exists(path("Schedule 2.1")));
  steps.thenChooseFile(path("Other.PDF"));
  pressPrint();
  EXPECT_TRUE(isPdf("Other.PDF"));
}

TEST_F(WindowPrinting, AFileIsReplacedOnlyWhenTheUserSaysSo) {
  openRegister(3);
  QFile taken(path("taken.pdf"));
  ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
  taken.close();
  steps.thenChooseFile(path("taken"));
  steps.thenPress("No");
  steps.thenCancel();
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre("Replace File | taken.pdf already exists. Do you want to replace it?"));
  EXPECT_EQ(taken.size(), 0);
  steps.thenChooseFile(path("taken"));
  steps.thenPress("Yes");
  pressPrint();
  EXPECT_TRUE(isPdf("taken.pdf"));
}

TEST_F(WindowPrinting, AFolderThatIsNotThereIsSaidBeforeAnythingIsPrinted) {
  openRegister(3);
  steps.thenChooseFile(path("nowhere/schedule.pdf"));
  steps.thenPress("OK");
  steps.thenCancel();
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre("Depreciation Calculator | The folder " + path("nowhere").toStdString() +
                          " does not exist. Choose another folder, or create this one first."));
}

TEST_F(WindowPrinting, AssetsOnNoPageAreSaidBeforeTheJob) {
  openRegister(first_too_many_for_a4);
  steps.thenChooseFile(path("schedule.pdf"));
  steps.thenPress("Cancel");
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre(std::string(missing_eight) + " File > Print lets you choose the paper."));
  EXPECT_FALSE(QFile::exists(path("schedule.pdf")));
  steps.thenChooseFile(path("schedule.pdf"));
  steps.thenPress("Print Anyway");
  pressPrint();
  EXPECT_TRUE(isPdf("schedule.pdf"));
}

TEST_F(WindowPrinting, NothingIsSaidWhereEveryAssetIsOnAPage) {
  openRegister(first_too_many_for_a4 - 1);
  steps.thenChooseFile(path("schedule.pdf"));
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(), IsEmpty());
  EXPECT_TRUE(isPdf("schedule.pdf"));
}

/// Opening it fails.
void makeUnwritable(const QString& path) { ASSERT_TRUE(QFile::link(path, path)); }

TEST_F(WindowPrinting, ARegisterIsWholeAgainAfterAFailedJob) {
  openRegister(20);
  clickCell(3, 2);
  makeUnwritable(path("loop.pdf"));
  steps.thenChooseFile(path("loop.pdf"));
  steps.thenPress("OK");
  pressPrint();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre(StartsWith("DepCalc10 | There may be a problem with your printer")));
  const Grid& table = assets().AssetViewTable;
  ASSERT_EQ(table.columns(), 21);
  for (int column = 1; column <= 20; ++column) EXPECT_EQ(table.columnWidth(column), 1200) << column;
  for (int row = 0; row < table.rows(); ++row) EXPECT_EQ(table.rowHeight(row), 450) << row;
  EXPECT_EQ(table.text(0, 20), "A-20");
  EXPECT_EQ(table.column(), 2) << "what was selected stays so";
  EXPECT_EQ(table.row(), 3);
  steps.thenChooseFile(path("schedule.pdf"));
  pressPrint();
  EXPECT_TRUE(isPdf("schedule.pdf"));
}

TEST_F(WindowPrinting, ThePreviewSaysBelowThePagesWhatIsOnNone) {
  for (const int assets : {first_too_many_for_a4, first_too_many_for_a4 - 1}) {
    window.closeCompany();
    openRegister(assets);
    QString note;
    steps.then([&note](QDialog& preview) {
      auto* const label = preview.findChild<QLabel*>("MissingAssets");
      ASSERT_NE(label, nullptr);
      note = label->isVisible() ? label->text() : QString();
      preview.reject();
    });
    action("Print Preview…").trigger();
    settle();
    EXPECT_TRUE(steps.done());
    const bool all = assets < first_too_many_for_a4;
    EXPECT_EQ("Print | " + note.toStdString(), all ? "Print | " : missing_eight);
  }
}

TEST_F(WindowPrinting, ThePrintDialogComesBackWhereThePaperIsNotAccepted) {
  openRegister(first_too_many_for_a4);
  const auto printTo = [this](const QString& file) {
    steps.then([file](QDialog& dialog) {
      ASSERT_NE(qobject_cast<QPrintDialog*>(&dialog), nullptr);
      auto* const name = dialog.findChild<QLineEdit*>("filename");
      ASSERT_NE(name, nullptr);
      name->setText(file);
      QMetaObject::invokeMethod(&dialog, "accept");
    });
  };
  printTo(path("first.pdf"));
  steps.thenPress("Back");
  steps.thenCancel();
  action("Print…").trigger();
  settle();
  EXPECT_TRUE(steps.done());
  EXPECT_THAT(steps.takeBoxes(), ElementsAre(missing_eight));
  EXPECT_FALSE(QFile::exists(path("first.pdf")));
  printTo(path("second"));
  steps.thenPress("Print Anyway");
  action("Print…").trigger();
  settle();
  EXPECT_TRUE(isPdf("second.pdf"));
}

}  // namespace
}  // namespace depcalc::testing
