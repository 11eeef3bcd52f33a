// How the screens come up: from their top left, the saved asset selected, no cell hidden.
#include <QScrollBar>

#include "host/unit_of_work.h"
#include "tests/desktop/assets_in_memory.h"
#include "tests/desktop/window_fixture.h"

namespace depcalc::testing {
namespace {

constexpr int many = 30;
constexpr int zooms[] = {75, 76, 77, 78, 80, 85, 88, 91, 96, 99, 100, 101, 125, 150, 175, 200, 300};

struct Screens : WindowTest {
  void openRegister(int count) {
    newCompany();
    window.closeCompany();
    const auto& file = companies.companies.at(path().toStdString()).file;
    file->reopen();
    addAssets(file, count);
    ASSERT_TRUE(window.openCompany(path()));
    settle();
    ASSERT_EQ(shown(), "DepCalcView1");
  }
  void clickOn(Control& control) {
    calculator().surface().act([&](User& user) { user.click(control); });
    settle();
  }
  void select(int row, int column) {
    calculator().surface().act(
        [&](User& user) { user.clickCell(assets().AssetViewTable, row, column); });
    settle();
  }
  void edit(int column) {
    select(0, column);
    clickOn(assets().EditButton.normal);
    ASSERT_EQ(shown(), "DepCalcCtl1");
  }
  /// Into the field that has the focus.
  void put(const char* text) {
    calculator().surface().act([&](User& user) { user.paste(text); });
  }
  std::pair<int, int> scrolled() {
    return {window.page().horizontalScrollBar()->value(),
            window.page().verticalScrollBar()->value()};
  }
  void scrollAway() {
    window.page().horizontalScrollBar()->setValue(window.page().horizontalScrollBar()->maximum());
    window.page().verticalScrollBar()->setValue(window.page().verticalScrollBar()->maximum());
    ASSERT_GT(scrolled().first, 0);
    ASSERT_GT(scrolled().second, 0);
  }
  bool isInSight(int row, int column) {
    auto& view = dynamic_cast<QTableView&>(widget(assets().AssetViewTable));
    const QRect cell = view.visualRect(view.model()->index(row, column));
    QWidget& page = *window.page().viewport();
    const QRect there(view.viewport()->mapTo(&page, cell.topLeft()), cell.size());
    return page.rect().contains(there);
  }
  bool hasScrollBar(Grid& grid) {
    const auto& view = dynamic_cast<QTableView&>(widget(grid));
    return view.verticalScrollBar()->isVisible() || view.horizontalScrollBar()->isVisible();
  }
  std::string index() { return calculator().container().CurrentRecord()->RecIndex(); }

  static constexpr std::pair<int, int> top_left{0, 0};
};

TEST_F(Screens, NoTableHidesCellsBehindAScrollBarAtAnyZoom) {
  openRegister(3);
  edit(1);
  clickOn(form().CalcButton.normal);
  ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  for (const int zoom : zooms) {
    window.setZoom(zoom);
    EXPECT_FALSE(hasScrollBar(comparison().DisplayTable)) << zoom;
    EXPECT_FALSE(hasScrollBar(comparison().UoPTable)) << zoom;
  }
  boxes.answers = {QMessageBox::No};
  clickOn(comparison().ViewAllLabel);
  EXPECT_EQ(boxes.take().size(), 1U);
  ASSERT_EQ(shown(), "DepCalcView1");
  for (const int zoom : zooms) {
    window.setZoom(zoom);
    EXPECT_FALSE(hasScrollBar(assets().AssetViewTable)) << zoom;
  }
}

TEST_F(Screens, EachComesUpFromItsTopLeft) {
  window.resize(600, 400);
  openRegister(many);
  scrollAway();
  clickOn(assets().NewButton.normal);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(scrolled(), top_left);
  scrollAway();
  clickOn(form().ViewAllLabel);
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(scrolled(), top_left);
  select(0, 1);
  scrollAway();
  clickOn(assets().EditButton.normal);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(scrolled(), top_left);
  scrollAway();
  clickOn(form().CalcButton.normal);
  ASSERT_EQ(shown(), "DepCalcDisplayCtl1");
  EXPECT_EQ(scrolled(), top_left);
  scrollAway();
  clickOn(comparison().CloseButton.normal);
  ASSERT_EQ(shown(), "DepCalcCtl1");
  EXPECT_EQ(scrolled(), top_left);
}

TEST_F(Screens, TheRegisterComesUpWithTheSavedAssetSelectedAndInSight) {
  openRegister(many);
  for (const int column : {many, 17, 1}) {
    edit(column);
    put("Saved");
    clickOn(form().SaveButton.normal);
    ASSERT_EQ(shown(), "DepCalcView1");
    EXPECT_EQ(assets().AssetViewTable.text(0, column), "Saved");
    EXPECT_EQ(assets().AssetViewTable.column(), column);
    EXPECT_TRUE(isInSight(0, column)) << column;
    EXPECT_EQ(index(), std::to_string(column)) << "the index that it had";
    EXPECT_EQ(focused(), "AssetViewTable");
  }
}

TEST_F(Screens, TheRegisterComesUpWithTheNewAssetSelectedAndInSight) {
  openRegister(many);
  clickOn(assets().NewButton.normal);
  while (focused() != "StartDateText") key(Qt::Key_Tab);
  put("7/1/2023");
  clickOn(form().SaveButton.normal);
  ASSERT_EQ(shown(), "DepCalcView1");
  EXPECT_EQ(assets().AssetViewTable.column(), many + 1);
  EXPECT_TRUE(isInSight(0, many + 1));
  const std::uint64_t before = window.company()->file()->unitOfWork()->revision();
  edit(many + 1);
  EXPECT_EQ(form().StartDateText.text(), "07/01/2023");
  clickOn(form().ViewAllLabel);
  EXPECT_EQ(assets().AssetViewTable.column(), many + 1) << "also where nothing was saved";
  EXPECT_EQ(window.company()->file()->unitOfWork()->revision(), before);
}

TEST_F(Screens, TheRegisterComesUpWithNothingSelectedWhereNoAssetIsCurrent) {
  openRegister(3);
  EXPECT_EQ(assets().AssetViewTable.column(), 0) << "at the start";
  clickOn(assets().NewButton.normal);
  clickOn(form().ViewAllLabel);
  EXPECT_EQ(assets().AssetViewTable.column(), 0) << "after a blank form";
  EXPECT_EQ(index(), "0");
  select(0, 2);
  boxes.answers = {QMessageBox::Yes};
  clickOn(assets().DeleteButton.normal);
  EXPECT_EQ(boxes.take().size(), 1U);
  EXPECT_EQ(assets().AssetViewTable.columns(), 3);
  EXPECT_EQ(assets().AssetViewTable.column(), 0) << "after a deletion";
  EXPECT_EQ(index(), "0");
}

}  // namespace
}  // namespace depcalc::testing
