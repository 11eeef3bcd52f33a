// The whole journey with real keys and clicks: a new company, three assets, each method, edit,
// delete, print.
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Journey : WindowTest {
  Journey() { newCompany(); }

  /// On the blank form: fills it and goes to the comparison.
  void compareAsset(std::initializer_list<const char*> fields) {
    enterAsset(fields);
    key(Qt::Key_C, Qt::AltModifier);
    ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  }
  void saveWith(const OptionButton& method) {
    click(method);
    key(Qt::Key_S, Qt::AltModifier);
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  void enterThree() {
    compareAsset({"TRK-014", "Delivery truck", "1FTYR10D", "Warehouse", "9/15/2023", "April", "5",
                  "Half Year", "38450", "4000", "150000"});
    saveWith(comparison().SYDOption);
    key(Qt::Key_N, Qt::AltModifier);
    compareAsset({"LAT-002", "Lathe", "C-4471", "Shop", "7/1/2023", "April", "5", "Actual Days",
                  "10000", "1000", ""});
    saveWith(comparison().DDBOption);
    key(Qt::Key_N, Qt::AltModifier);
    compareAsset({"PC-031", "Workstation", "5CD9", "Office", "1/20/2024", "April", "3", "Full Year",
                  "2350", "0", "1000"});
    saveWith(comparison().UoPOption);
  }
  std::string cell(int row, int column) {
    return std::string(assets().AssetViewTable.text(row, column));
  }
};

TEST_F(Journey, ThreeAssetsAreEnteredComparedAndSaved) {
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(focused(), "IDText");
  enterThree();
  EXPECT_EQ(assets().AssetViewTable.columns(), 4);
  EXPECT_EQ(cell(0, 1), "TRK-014");
  EXPECT_EQ(cell(10, 1), "SYD");
  EXPECT_EQ(cell(10, 2), "DDB");
  EXPECT_EQ(cell(10, 3), "UOP");
  EXPECT_EQ(cell(8, 2), "Actual Days");
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(status(0), "Sample Joinery — single-user mode");
  EXPECT_TRUE(status(2).contains("Fiscal year starts in April")) << status(2).toStdString();
  EXPECT_TRUE(status(2).contains("3 assets"));
}

TEST_F(Journey, AnAssetIsEditedAndDeletedByKeyboard) {
  enterThree();
  EXPECT_EQ(assets().AssetViewTable.column(), 3) << "the asset just saved";
  for (int i = 0; i < 3; ++i) key(Qt::Key_Left);
  key(Qt::Key_E, Qt::AltModifier);
  EXPECT_THAT(boxes.take(), ElementsAre("Edit Assets | Please select an asset to edit by clicking "
                                        "any cell in the column."));
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  EXPECT_EQ(assets().AssetViewTable.column(), 2);
  key(Qt::Key_E, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "LAT-002");
  EXPECT_EQ(focused(), "IDText");
  fill("LAT-003");
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(cell(0, 2), "LAT-003");
  clickCell(3, 1);
  boxes.answers = {QMessageBox::No, QMessageBox::Yes};
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_EQ(assets().AssetViewTable.columns(), 4);
  key(Qt::Key_D, Qt::AltModifier);
  settle();
  EXPECT_THAT(boxes.take(),
              ElementsAre("Delete an Asset | Are you sure you want to delete asset TRK-014?",
                          "Delete an Asset | Are you sure you want to delete asset TRK-014?"));
  EXPECT_EQ(assets().AssetViewTable.columns(), 3);
  EXPECT_EQ(cell(0, 1), "LAT-003");
  EXPECT_TRUE(status(2).contains("2 assets"));
}

TEST_F(Journey, EveryFieldIsReachedByTabInTheOrderOfTheForm) {
  std::vector<std::string> visited;
  for (int i = 0; i < 11; ++i) {
    visited.push_back(focused());
    key(Qt::Key_Tab);
  }
  EXPECT_THAT(visited, ElementsAre("IDText", "NameText", "SerialText", "DeptText", "StartDateText",
                                   "FYEndText", "DRecoveryText", "DConvList", "BasisText",
                                   "SalvageText", "ProdCapText"));
  // The buttons and links of the page come next.
  for (int i = 0; i < 6; ++i) key(Qt::Key_Tab);
  EXPECT_EQ(focused(), "IDText");
}

TEST_F(Journey, ARejectionSaysWhyAndKeepsTheFocus) {
  const struct {
    const char* field;
    const char* typed;
    const char* title;
  } cases[] = {{"StartDateText", "13/45/2020", "Placed-in-service Date"},
               {"DRecoveryText", "51", "Useful Life"}};
  for (const auto& [field, typed, title] : cases) {
    while (focused() != field) key(Qt::Key_Tab);
    fill(typed);
    const std::vector<std::string> said = boxes.take();
    ASSERT_EQ(said.size(), 1U) << field;
    EXPECT_EQ(said[0].substr(0, said[0].find(" |")), title);
    EXPECT_EQ(focused(), field);
    EXPECT_TRUE(widget(*calculator().stage().focused()).hasFocus()) << field;
  }
}

TEST_F(Journey, FieldsKeepTheirRulesUnderRealKeys) {
  fill("12345678901234567890x");
  EXPECT_EQ(form().IDText.text(), "12345678901234567890") << "twenty characters at most";
  while (focused() != "StartDateText") key(Qt::Key_Tab);
  fill("3/1/24");
  EXPECT_EQ(form().StartDateText.text(), "03/01/2024");
  fill("October");
  EXPECT_EQ(form().FYEndText.text(), "October");
  fill("7");
  key(Qt::Key_Tab);
  fill("1234.5");
  EXPECT_EQ(form().BasisText.text(), "1,234.50");
  fill("1x");
  EXPECT_EQ(form().SalvageText.text(), "");
}

TEST_F(Journey, TheFirstEmptyFieldIsAskedFor) {
  key(Qt::Key_C, Qt::AltModifier);
  EXPECT_THAT(boxes.take(),
              ElementsAre("Placed-in-service Date | Please enter the Placed-in-service Date."));
  EXPECT_EQ(focused(), "StartDateText");
}

TEST_F(Journey, UnsavedChangesAreAskedAboutWhenTheCompanyCloses) {
  fill("LOST-1");
  while (focused() != "StartDateText") key(Qt::Key_Tab);
  fill("3/1/2024");
  boxes.answers = {QMessageBox::Yes};
  window.closeCompany();
  EXPECT_THAT(boxes.take(),
              ElementsAre("Save Changes | You have not saved your changes to this asset. Would you "
                          "like to save your changes now?"));
  EXPECT_EQ(window.calculator(), nullptr);
  ASSERT_TRUE(window.openCompany(path()));
  settle();
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(cell(0, 1), "LOST-1");
  clickCell(0, 1);
  window.closeCompany();
  EXPECT_THAT(boxes.take(), IsEmpty()) << "the register asks nothing";
}

TEST_F(Journey, MenusDialogsAndOtherWindowsAreNoLossOfFocus) {
  fill("A-1");
  const std::string field = focused();
  QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
  settle();
  if (QWidget* menu = QApplication::activePopupWidget()) QTest::keyClick(menu, Qt::Key_Escape);
  QTimer::singleShot(50,
                     [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  action("Company Info…").trigger();
  settle();
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(focused(), field);
}

TEST_F(Journey, F1ExplainsTheFieldAndEscapeClosesTheHelp) {
  while (focused() != "SalvageText") key(Qt::Key_Tab);
  key(Qt::Key_F1);
  EXPECT_TRUE(popup().isShown());
  EXPECT_EQ(popup().HelpTitle.text(), "Salvage Value");
  EXPECT_EQ(focused(), "SalvageText");
  key(Qt::Key_Escape);
  EXPECT_FALSE(popup().isShown());
  action("Deleting a record").trigger();
  settle();
  EXPECT_EQ(screen<DepCalcPopup>("DepCalcPopup2").HelpTitle.text(), "Deleting a record");
}

TEST_F(Journey, ThePrintButtonPrints) {
  enterThree();
  boxes.file = directory.filePath("schedule.pdf");  // no printer here: the user names a file
  key(Qt::Key_P, Qt::AltModifier);
  EXPECT_THAT(boxes.take(), IsEmpty());
  QFile pdf(directory.filePath("schedule.pdf"));
  ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
  EXPECT_TRUE(pdf.read(4) == "%PDF");
}

}  // namespace
}  // namespace depcalc::testing
