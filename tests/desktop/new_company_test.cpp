// File > New Company: what the file is called, and what is said at once.
#include "tests/desktop/modal_steps.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct NewCompany : WindowTest {
  NewCompany() { boxes.answering = false; }

  /// The second dialog, which asks for the company's name and month.
  void thenAccept(const char* proposed_name) {
    steps.then([proposed_name](QDialog& dialog) {
      auto* const name = dialog.findChild<QLineEdit*>("CompanyName");
      ASSERT_NE(name, nullptr);
      EXPECT_EQ(name->text().toStdString(), proposed_name);
      dialog.accept();
    });
  }
  void choose() {
    action("New Company…").trigger();
    settle();
    EXPECT_TRUE(steps.done());
  }

  ModalSteps steps;
};

TEST_F(NewCompany, ADotInTheNameIsNoSuffix) {
  steps.thenChooseFile(path("Smith & Co. 2024"));
  thenAccept("Smith & Co. 2024");
  choose();
  ASSERT_NE(window.company(), nullptr);
  EXPECT_EQ(window.company()->path(), path("Smith & Co. 2024.company").toStdString());
  EXPECT_EQ(window.windowTitle().toStdString(), "Smith & Co. 2024 – Depreciation Calculator");
}

TEST_F(NewCompany, ANameThatIsTakenIsSaidAtOnce) {
  QFile taken(path("joinery.company"));
  ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
  steps.thenChooseFile(path("joinery"));
  steps.thenPress("OK");
  steps.thenChooseFile(path("carpentry"));
  thenAccept("carpentry");
  choose();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre("Depreciation Calculator | joinery.company already exists. Choose "
                          "another name for the new company; to open the existing company, use "
                          "File > Open Company."));
  ASSERT_NE(window.company(), nullptr);
  EXPECT_EQ(window.company()->path(), path("carpentry.company").toStdString());
}

TEST_F(NewCompany, AFolderThatIsNotThereIsSaidAtOnce) {
  steps.thenChooseFile(path("nowhere/joinery"));
  steps.thenPress("OK");
  steps.thenCancel();
  choose();
  EXPECT_THAT(steps.takeBoxes(),
              ElementsAre("Depreciation Calculator | The folder " + path("nowhere").toStdString() +
                          " does not exist. Choose another folder, or create this one first."));
  EXPECT_EQ(window.company(), nullptr);
}

}  // namespace
}  // namespace depcalc::testing
