// The assets beside the page: chosen, edited, remembered, and in nobody's way.
#include <QCheckBox>
#include <QClipboard>
#include <QDockWidget>
#include <QHeaderView>
#include <QMenu>
#include <QToolButton>

#include "DepCalc/company_assets.h"
#include "changes/disposing.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AssetsBeside : WindowTest {
  AssetsBeside() {
    newCompany();
    for (const char* id : {"TRK-014", "SAW-2", "SAW-10"}) {
      if (shown() != "DepCalcCtl1") key(Qt::Key_N, Qt::AltModifier);
      enterAsset({id, id[0] == 'T' ? "Delivery truck" : "Saw", "", "Shop", "9/15/2023", "April",
                  "5", "Half Year", "1000", "0", "100"});
      key(Qt::Key_S, Qt::AltModifier);
    }
  }

  template <typename Widget>
  Widget& part(const char* name) {
    auto* const found = window.findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  QTableView& table() { return part<QTableView>("AssetList"); }
  QLineEdit& search() { return part<QLineEdit>("AssetSearch"); }
  std::string totals() { return part<QLabel>("AssetTotals").text().toStdString(); }

  void find(const QString& text) {
    key(Qt::Key_F, Qt::ControlModifier);
    type(text);
  }
  std::vector<std::string> listed() {
    std::vector<std::string> ids;
    for (int row = 0; row < table().model()->rowCount(); ++row) {
      ids.push_back(table().model()->index(row, 0).data().toString().toStdString());
    }
    return ids;
  }
  std::string marked() {
    const QModelIndex current = table().currentIndex();
    return current.isValid() ? current.siblingAtColumn(0).data().toString().toStdString() : "";
  }
  void dispose(int asset) {
    CompanyAssets assets(window.company()->file(), Date::strict(2024, 6, 15));
    saveDisposal(assets, asset, Disposal{Date::strict(2024, 5, 1), Currency()});
    window.startCalculator();
    settle();
  }
};

TEST_F(AssetsBeside, AreListedWhereTheViewMenuOrASearchAsksForThem) {
  EXPECT_EQ(window.findChild<QTableView*>("AssetList"), nullptr) << "no room at first";
  action("Assets").trigger();
  settle();
  EXPECT_THAT(listed(), ElementsAre("TRK-014", "SAW-2", "SAW-10"));
  EXPECT_EQ(totals(), "3 in service · cost 3,000.00 · book value 3,000.00");
  action("Assets").trigger();
  settle();
  EXPECT_FALSE(table().isVisible());
  find("saw");
  EXPECT_TRUE(table().isVisible());
  EXPECT_THAT(listed(), ElementsAre("SAW-2", "SAW-10"));
  EXPECT_EQ(totals(), "2 in service · cost 2,000.00 · book value 2,000.00");
}

TEST_F(AssetsBeside, AreChosenInTheRegisterByArrowsWhileTheSearchKeepsTheKeys) {
  clickCell(1, 1);
  find("saw");
  key(Qt::Key_Down);
  EXPECT_EQ(marked(), "SAW-2");
  EXPECT_EQ(assets().AssetViewTable.column(), 2);
  key(Qt::Key_Down);
  EXPECT_EQ(assets().AssetViewTable.column(), 3);
  EXPECT_TRUE(search().hasFocus());
  clickCell(1, 2);
  EXPECT_EQ(marked(), "SAW-2") << "what the register selects is marked";
}

TEST_F(AssetsBeside, AreEditedByEnterAndADoubleClick) {
  find("truck");
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "TRK-014");
  EXPECT_EQ(focused(), "IDText");
  EXPECT_TRUE(widget(form().IDText).hasFocus());
  find("saw");
  const QRect cell = table().visualRect(table().model()->index(1, 1));
  QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, cell.center());
  QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, cell.center());
  settle();
  EXPECT_EQ(form().IDText.text(), "SAW-10");
  EXPECT_THAT(boxes.take(), IsEmpty()) << "nothing was changed";
}

TEST_F(AssetsBeside, OfSeveralFoundEnterChoosesTheFirstOnly) {
  clickCell(1, 1);
  find("saw");
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(marked(), "SAW-2");
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "SAW-2");
}

TEST_F(AssetsBeside, AskAboutUnsavedChangesBeforeAnotherIsEditedAndCancelKeepsAll) {
  find("truck");
  key(Qt::Key_Return);
  fill("TRK-015");
  EXPECT_EQ(focused(), "NameText");
  find("saw-2");
  EXPECT_THAT(boxes.take(), IsEmpty()) << "looking for one asks nothing";
  EXPECT_EQ(form().IDText.text(), "TRK-015");
  EXPECT_EQ(focused(), "NameText");
  boxes.answers = {QMessageBox::Cancel};
  key(Qt::Key_Return);
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "TRK-015");
  boxes.answers = {QMessageBox::Yes};
  search().setFocus();
  key(Qt::Key_Return);
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(form().IDText.text(), "SAW-2");
  key(Qt::Key_F, Qt::ControlModifier);
  key(Qt::Key_Escape);
  EXPECT_THAT(listed(), ElementsAre("TRK-015", "SAW-2", "SAW-10")) << "saved";
}

TEST_F(AssetsBeside, AFieldThatRefusesItsTextKeepsTheFormWhereItIs) {
  find("truck");
  key(Qt::Key_Return);
  goTo("StartDateText");
  type("13/45/2020");
  find("saw-2");
  EXPECT_THAT(boxes.take(), IsEmpty());
  key(Qt::Key_Return);
  EXPECT_THAT(boxes.take(), ElementsAre("Placed-in-service Date | Please enter a valid date."));
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(focused(), "StartDateText");
  EXPECT_TRUE(widget(form().StartDateText).hasFocus()) << "to be put right";
}

TEST_F(AssetsBeside, EscapeClearsTheSearchAndThenGoesBackToThePage) {
  find("truck");
  key(Qt::Key_Return);
  goTo("DeptText");
  find("saw");
  key(Qt::Key_Escape);
  EXPECT_EQ(search().text(), "");
  EXPECT_TRUE(search().hasFocus());
  key(Qt::Key_Escape);
  EXPECT_TRUE(widget(form().DeptText).hasFocus());
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(AssetsBeside, TabGoesRoundAmongThemAndNotIntoThePage) {
  key(Qt::Key_F, Qt::ControlModifier);
  std::vector<std::string> stops;
  for (int i = 0; i < 5; ++i) {
    stops.push_back(QApplication::focusWidget()->objectName().toStdString());
    key(Qt::Key_Tab);
  }
  EXPECT_THAT(stops, ElementsAre("AssetSearch", "HideDisposed", "AssetColumns", "AssetList",
                                 "AssetSearch"));
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(search().hasFocus());
}

TEST_F(AssetsBeside, AreReachedFromThePageAndBackByF6) {
  key(Qt::Key_N, Qt::AltModifier);
  goTo("StartDateText");
  type("13/45/2020");
  key(Qt::Key_F6);
  EXPECT_EQ(focused(), "StartDateText") << "nothing stands beside the page";
  action("Assets").trigger();
  settle();
  for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
    key(Qt::Key_F6, modifier);
    EXPECT_TRUE(search().hasFocus());
    key(Qt::Key_F6, modifier);
    EXPECT_TRUE(widget(form().StartDateText).hasFocus());
  }
  EXPECT_THAT(boxes.take(), IsEmpty());
  EXPECT_EQ(form().StartDateText.text(), "13/45/2020");
}

TEST_F(AssetsBeside, AreFoundWhateverTheirLettersAreCapitalOrNot) {
  if (shown() != "DepCalcCtl1") key(Qt::Key_N, Qt::AltModifier);
  enterAsset(
      {"COOL-1", "x", "", "Shop", "9/15/2023", "April", "5", "Half Year", "1000", "0", "100"});
  goTo("NameText");
  key(Qt::Key_A, Qt::ControlModifier);
  QApplication::clipboard()->setText(QStringLiteral("Kühlanlage ÖL"));
  key(Qt::Key_V, Qt::ControlModifier);
  key(Qt::Key_S, Qt::AltModifier);
  key(Qt::Key_F, Qt::ControlModifier);
  for (const QString& text : {QStringLiteral("KÜHL"), QStringLiteral("öl küh")}) {
    search().setText(text);
    EXPECT_EQ(listed().size(), 1U) << text.toStdString();
  }
}

TEST_F(AssetsBeside, AreGreyedAndHiddenOnceTheyAreDisposedOf) {
  action("Assets").trigger();
  dispose(2);
  EXPECT_EQ(totals(), "2 in service · cost 2,000.00 · book value 2,000.00 · 1 disposed of");
  const QModelIndex cell = table().model()->index(1, 0);
  EXPECT_TRUE(cell.data(Qt::FontRole).value<QFont>().strikeOut());
  EXPECT_EQ(cell.data(Qt::AccessibleTextRole).toString(), "SAW-2, disposed of");
  EXPECT_FALSE(cell.siblingAtRow(0).data(Qt::FontRole).isValid());
  part<QCheckBox>("HideDisposed").click();
  EXPECT_THAT(listed(), ElementsAre("TRK-014", "SAW-10"));
  EXPECT_EQ(totals(), "2 in service · cost 2,000.00 · book value 2,000.00");
}

TEST_F(AssetsBeside, AreThereOnceSaved) {
  action("Assets").trigger();
  settle();
  key(Qt::Key_N, Qt::AltModifier);
  enterTruck();
  EXPECT_EQ(listed().size(), 3U);
  key(Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(listed().size(), 4U);
  EXPECT_EQ(marked(), "TRK-014") << "the register selects what was saved";
  window.closeCompany();
  settle();
  EXPECT_FALSE(table().isVisible());
  newCompany("other");
  EXPECT_TRUE(table().isVisible());
  EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(AssetsBeside, ComeBackAsTheyWereLeft) {
  action("Assets").trigger();
  settle();
  window.resize(1200, 700);
  part<QDockWidget>("assetsDock");
  QMenu& columns = *part<QToolButton>("AssetColumns").menu();
  for (QAction* column : columns.actions()) {
    column->setChecked(column->text() == "Department" || column->text() == "Basis");
  }
  table().sortByColumn(0, Qt::DescendingOrder);
  part<QCheckBox>("HideDisposed").click();
  window.resizeDocks({&part<QDockWidget>("assetsDock")}, {333}, Qt::Horizontal);
  settle();
  window.close();
  desktop::MainWindow again(
      {companies, settings, backups, [] { return Date::strict(2024, 6, 15); }, "/start"});
  again.show();
  ASSERT_TRUE(again.openCompany(path()));
  QTest::qWait(20);
  const auto& list = *again.findChild<QTableView*>("AssetList");
  EXPECT_TRUE(list.isVisible());
  std::vector<int> shown;
  for (int i = 0; i < list.model()->columnCount(); ++i) {
    if (!list.isColumnHidden(i)) shown.push_back(i);
  }
  EXPECT_THAT(shown, ElementsAre(0, 2, 4));
  EXPECT_EQ(list.model()->index(0, 0).data().toString(), "TRK-014");
  EXPECT_TRUE(again.findChild<QCheckBox*>("HideDisposed")->isChecked());
  EXPECT_EQ(again.findChild<QDockWidget*>("assetsDock")->width(), 333);
}

TEST_F(AssetsBeside, AreClosedByTheirOwnButtonAsByTheMenu) {
  key(Qt::Key_F, Qt::ControlModifier);
  part<QDockWidget>("assetsDock").close();
  settle();
  EXPECT_FALSE(table().isVisible());
  EXPECT_FALSE(action("Assets").isChecked());
  EXPECT_EQ(QApplication::focusWidget(), &widget(assets().AssetViewTable));
  EXPECT_EQ(settings.shown("assets"), false);
}

TEST_F(AssetsBeside, WaitForACompany) {
  window.closeCompany();
  settle();
  for (const char* item : {"Assets", "Find Asset"}) EXPECT_FALSE(action(item).isEnabled()) << item;
}

}  // namespace
}  // namespace depcalc::testing
