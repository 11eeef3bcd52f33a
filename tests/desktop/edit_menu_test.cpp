// Copying: the register, the comparison, a field of the form.
#include <QClipboard>
#include <QMenu>
#include <QMimeData>

#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct EditMenu : WindowTest {
  EditMenu() {
    newCompany();
    QApplication::clipboard()->clear();
  }

  static std::string copied() { return QApplication::clipboard()->text().toStdString(); }
  void trigger(const char* text) {
    action(text).trigger();
    settle();
  }
  /// Opens the context menu where `open` asks for it and chooses the item.
  template <typename Open>
  void chooseFromMenu(const char* item, Open open) {
    bool chosen = false;
    QTimer::singleShot(50, [&] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      EXPECT_FALSE(menu->accessibleName().isEmpty());
      for (QAction* offered : menu->actions()) {
        if (offered->text().remove(u'&') != item) continue;
        chosen = true;
        menu->setActiveAction(offered);
      }
      QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
    });
    open();
    EXPECT_TRUE(chosen);
    settle();
  }
};

constexpr const char* truck_column =
    "Asset ID\tTRK-014\nName\tDelivery truck\nSerial #\t1FTYR10D\nDept/Loc\tWarehouse\n"
    "Placed-in-service Date\t09/15/2023\nBasis\t38450.00\nSalvage Value\t4000.00\n"
    "Depreciation Basis\t34450.00\nConvention\tHalf Year\nUseful Life\t5\nMethod\tSL\n";

TEST_F(EditMenu, CopiesTheSelectedAssetOrAllOfThem) {
  compareTruck();
  key(Qt::Key_S, Qt::AltModifier);
  ASSERT_EQ(shown(), "DepCalcView1");
  clickCell(3, 1);
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_THAT(copied(), StartsWith(truck_column));
  EXPECT_THAT(copied(), HasSubstr("\nFY2024\t3445.00\n"));
  EXPECT_THAT(QApplication::clipboard()->mimeData()->html().toStdString(),
              HasSubstr("<th scope=\"row\">Asset ID</th><td>TRK-014</td>"));
  QApplication::clipboard()->clear();
  key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_THAT(copied(), StartsWith(truck_column));
}

TEST_F(EditMenu, ThePointersAssetIsTheOneThatItsMenuCopies) {
  saveTruck();
  clickCell(0, 0);
  ASSERT_EQ(assets().AssetViewTable.column(), 0) << "none is selected";
  auto& cells = dynamic_cast<QTableView&>(widget(assets().AssetViewTable));
  const QPoint name = cells.visualRect(cells.model()->index(1, 1)).center();
  const auto open = [&] {
    QContextMenuEvent event(QContextMenuEvent::Mouse, name, cells.viewport()->mapToGlobal(name));
    QApplication::sendEvent(cells.viewport(), &event);
  };
  chooseFromMenu("Copy", open);
  EXPECT_THAT(copied(), StartsWith("Asset ID\tTRK-014\n"));
  EXPECT_EQ(assets().AssetViewTable.column(), 1);
}

TEST_F(EditMenu, CopiesTheChosenMethodOfTheComparisonOrAll) {
  compareTruck();
  trigger("Copy");
  EXPECT_THAT(copied(), StartsWith("\tStraight Line\nFY2024\t3445.00\n"));
  click(comparison().SYDOption);
  auto& cells = dynamic_cast<QTableView&>(widget(comparison().DisplayTable));
  const auto open = [&] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(cells.viewport(), &event);
  };
  chooseFromMenu("Copy", open);
  EXPECT_THAT(copied(), StartsWith("\tSum of the Years' Digits\nFY2024\t"));
  chooseFromMenu("Copy Whole Table", open);
  EXPECT_THAT(copied(), StartsWith("\tStraight Line\tSum of the Years' Digits\tDouble Declining"));
}

TEST_F(EditMenu, LeavesTheKeyToAFieldWithText) {
  const auto offered = [this] {
    const auto& menu = *qobject_cast<QMenu*>(action("Copy Whole Table").parent());
    emit const_cast<QMenu&>(menu).aboutToShow();
    return std::pair(action("Copy").isEnabled(), action("Copy Whole Table").isEnabled());
  };
  EXPECT_EQ(offered(), std::pair(false, false)) << "nothing is selected";
  type("TRK-014");
  key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(offered(), std::pair(true, false));
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), "TRK-014");
  QApplication::clipboard()->clear();
  trigger("Copy");
  EXPECT_EQ(copied(), "TRK-014");
}

}  // namespace
}  // namespace depcalc::testing
