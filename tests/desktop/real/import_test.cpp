// A list of assets from a spreadsheet, brought in by the user's hand.
#include <QFile>
#include <QLabel>
#include <QPushButton>

#include "tests/desktop/real/real_window.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Importing : RealWindow {
  void SetUp() override {
    newCompany("joinery.company", 1);
    QFile list(path("anlagen.csv"));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write(
        "Anlagen-Nr.;Bezeichnung;Anschaffungsdatum;Nutzungsdauer;AHK;Restwert;Methode\r\n"
        "1001;B\xFCrotisch;15.03.2023;13;1.278,60;0,00;linear\r\n"
        "1002;Lieferwagen;01.04.2022;60;38.450,00;4.000,00;linear\r\n");
  }

  /// The text of a label of the dialog that is open; on the window's thread.
  static std::string labelled(const char* name) {
    auto* const dialog = QApplication::activeModalWidget();
    auto* const found = dialog == nullptr ? nullptr : dialog->findChild<QLabel*>(name);
    return found == nullptr ? std::string() : found->text().toStdString();
  }
  bool sees(const char* name, const std::string& text) {
    return user.sees([&] { return labelled(name) == text; });
  }
};

TEST_F(Importing, ARowIsCorrectedInPlaceAndAllOfItImportedAndUndone) {
  user.key("ctrl+i");
  user.choosesFile(path("anlagen.csv"));
  ASSERT_TRUE(sees("Summary", "1 asset ready · 1 with problems"));
  EXPECT_TRUE(
      sees("Remark", "Line 3: Useful life: Please enter a number less than or equal to 50."));
  user.key("F2");
  user.types("6");
  user.key("Return");
  ASSERT_TRUE(sees("Summary", "2 assets ready"));
  user.key("alt+i");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_THAT(idsIn(path()), ElementsAre("1001", "1002"));
  user.key("ctrl+z");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path()), IsEmpty()) << "one step";
  user.key("ctrl+y");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_THAT(idsIn(path()), ElementsAre("1001", "1002"));
}

TEST_F(Importing, CancelLeavesTheEntryAsItIs) {
  user.key("ctrl+i");
  user.choosesFile(path("anlagen.csv"));
  ASSERT_TRUE(sees("Summary", "1 asset ready · 1 with problems"));
  user.key("Escape");
  EXPECT_TRUE(user.seesNoDialog());
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_THAT(idsIn(path()), IsEmpty());
}

}  // namespace
}  // namespace depcalc::testing
