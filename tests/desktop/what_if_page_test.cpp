// Insight's What if: rows, and a value taken into the form as typing would.
#include "desktop/workspace/what_if_page.h"

#include <QPushButton>

#include "desktop/workspace/insight_panel.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using desktop::WhatIfPage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct WhatIfInWindow : WindowTest {
  WhatIfInWindow() { newCompany(); }

  void openPage() {
    if (window.findChild<QWidget*>("InsightPanel") == nullptr) action("Insight").trigger();
    settle();
    window.findChild<desktop::InsightPanel*>("InsightPanel")->choose("What if");
    settle();
    EXPECT_TRUE(QTest::qWaitFor([this] { return table().isVisible(); }, 2000));
  }
  QTableView& table() { return *window.findChild<QTableView*>("WhatIfTable"); }
  QPushButton& use() { return *window.findChild<QPushButton*>("UseThese"); }
  void choose(const char* caption) {
    for (int row = 0; row < table().model()->rowCount(); ++row) {
      if (table().model()->index(row, 0).data().toString().section(u'\n', 0, 0) ==
          QLatin1String(caption)) {
        table().selectRow(row);
        return;
      }
    }
    ADD_FAILURE() << "no row " << caption;
  }
  std::string cell(const char* caption, int column) {
    choose(caption);
    return table()
        .model()
        ->index(table().currentIndex().row(), column)
        .data()
        .toString()
        .toStdString();
  }
};

TEST_F(WhatIfInWindow, ShowsFirstYearAndTotalByMethod) {
  compareTruck();
  openPage();
  EXPECT_EQ(cell("As it is", 2), "5,741.67\n34,450.00");
  EXPECT_EQ(cell("Full Year", 1), "6,890.00\n34,450.00");
  EXPECT_EQ(cell("As it is", 0), "As it is\n0.2297 per unit");
  const QModelIndex index = table().model()->index(0, 2);
  EXPECT_EQ(index.data(Qt::AccessibleTextRole).toString(),
            "Sum of the Years' Digits: first year 5,741.67, total 34,450.00");
}

TEST_F(WhatIfInWindow, PutsAValueIntoTheFormThatShows) {
  enterTruck();
  openPage();
  choose("As it is");
  EXPECT_FALSE(use().isEnabled());
  choose("7 years");
  EXPECT_TRUE(use().isEnabled());
  use().click();
  settle();
  EXPECT_EQ(form().DRecoveryText.text(), "7");
  EXPECT_EQ(calculator().container().CurrentRecord()->DepRecovery(), 7);
  choose("Full Month");
  use().click();
  settle();
  EXPECT_EQ(form().DConvList.text(), "Full Month");
  EXPECT_EQ(calculator().container().CurrentRecord()->DepConvention(), "2");
  choose("Salvage 3,845.00");
  use().click();
  settle();
  EXPECT_EQ(form().SalvageText.text(), "3,845.00");
  EXPECT_EQ(calculator().container().CurrentRecord()->AssetSalvage(), Currency::fromText("3845"));
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_THAT(boxes.take(), IsEmpty());
}

TEST_F(WhatIfInWindow, LeadsFromTheComparisonToTheForm) {
  compareTruck();
  openPage();
  choose("4 years");
  use().click();
  settle();
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().DRecoveryText.text(), "4");
  EXPECT_EQ(form().IDText.text(), "TRK-014");
}

TEST_F(WhatIfInWindow, LeadsFromTheRegisterToTheForm) {
  saveTruck();
  clickCell(0, 1);
  openPage();
  choose("No salvage");
  use().click();
  settle();
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().SalvageText.text(), "0.00");
  EXPECT_TRUE(calculator().asksWhenLeft()) << "changed, and not saved by itself";
}

TEST_F(WhatIfInWindow, StopsAtAFieldThatRefusesToBeLeft) {
  enterTruck();
  openPage();
  goTo("BasisText");
  key(Qt::Key_A, Qt::ControlModifier);
  type("1");
  choose("7 years");
  use().click();
  settle();
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("alvage")));
  EXPECT_EQ(focused(), "BasisText");
  EXPECT_EQ(form().DRecoveryText.text(), "5");
}

TEST_F(WhatIfInWindow, AsksBeforeItLeadsToAnotherAssetAndCancelKeepsAll) {
  saveTruck();
  key(Qt::Key_N, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  enterAsset({"LAT-002", "Lathe", "", "", "7/1/2023", "April", "5", "Full Year", "10000", "1000"});
  openPage();
  SavedAsset truck;
  truck.number = 1;
  truck.placed_in_service = Date::strict(2023, 9, 15);
  truck.fiscal_year_end = Date::strict(2023, 3, 31);
  truck.basis = Currency::fromText("38450");
  truck.life = 5;
  auto* const panel = window.findChild<desktop::InsightPanel*>("InsightPanel");
  panel->follow({desktop::InsightPlace::assets, truck, {}, {}});
  choose("7 years");
  boxes.answers = {QMessageBox::Cancel};
  use().click();
  EXPECT_THAT(boxes.take(), ElementsAre(HasSubstr("save")));
  EXPECT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(form().IDText.text(), "LAT-002");
  EXPECT_EQ(form().DRecoveryText.text(), "5");
  panel->follow({desktop::InsightPlace::assets, truck, {}, {}});
  choose("7 years");
  boxes.answers = {QMessageBox::No};
  use().click();
  settle();
  EXPECT_EQ(form().IDText.text(), "TRK-014");
  EXPECT_EQ(form().DRecoveryText.text(), "7");
}

TEST_F(WhatIfInWindow, SaysWhatIsMissing) {
  if (window.findChild<QWidget*>("InsightPanel") == nullptr) action("Insight").trigger();
  settle();
  window.findChild<desktop::InsightPanel*>("InsightPanel")->choose("What if");
  settle();
  EXPECT_FALSE(table().isVisible());
  EXPECT_FALSE(use().isVisible());
}

}  // namespace
}  // namespace depcalc::testing
