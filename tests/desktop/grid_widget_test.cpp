// The grid's widget: cells, keys, the mark, and a register at its capacity.
#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextDocumentFragment>

#include "desktop/widgets/caption_strip.h"
#include "tests/desktop/page_fixture.h"

namespace depcalc::testing {
namespace {

using ::testing::ElementsAre;

struct GridWidgetTest : PageTest {
  QTableView& view() { return widget<QTableView>(screen.Table); }
  void clickAt(int row, int column) {
    const QRect cell = view().visualRect(view().model()->index(row, column));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QApplication::processEvents();
  }
  std::pair<int, int> current() { return {screen.Table.row(), screen.Table.column()}; }
};

TEST_F(GridWidgetTest, ShowsTheTextsOfTheGrid) {
  screen.Table.setText(2, 1, "2,500.00");
  EXPECT_EQ(view().model()->index(2, 1).data().toString(), "2,500.00");
  screen.Table.setRows(9);
  screen.Table.setColumns(7);
  EXPECT_EQ(view().model()->rowCount(), 9);
  EXPECT_EQ(view().model()->columnCount(), 7);
}

TEST_F(GridWidgetTest, SectionsAreAsWideAsTwipsSay) {
  screen.Table.setColumnWidth(0, 1800);
  screen.Table.setColumnWidth(2, 0);
  screen.Table.setRowHeight(1, 450);
  EXPECT_EQ(view().columnWidth(0), 120);
  EXPECT_EQ(view().columnWidth(2), 0);
  EXPECT_EQ(view().rowHeight(1), 30);
  surface.setScale(desktop::Scale(96, 150));
  EXPECT_EQ(view().columnWidth(0), 180);
  EXPECT_EQ(view().rowHeight(1), 45);
}

TEST_F(GridWidgetTest, AClickMakesTheCellCurrentAndClicksIt) {
  clickAt(2, 1);
  EXPECT_EQ(current(), std::pair(2, 1));
  EXPECT_TRUE(screen.Table.hasFocus());
  EXPECT_THAT(screen.said, ElementsAre("cell"));
}

TEST_F(GridWidgetTest, ArrowsEnterHomeAndEndRaiseTheSameClick) {
  clickAt(1, 1);
  screen.said.clear();
  key(Qt::Key_Down);
  EXPECT_EQ(current(), std::pair(2, 1));
  key(Qt::Key_Right);
  key(Qt::Key_Return);
  EXPECT_EQ(current(), std::pair(2, 2));
  key(Qt::Key_Home);
  EXPECT_EQ(current(), std::pair(2, 1));
  key(Qt::Key_End);
  EXPECT_EQ(current(), std::pair(2, 2));
  EXPECT_THAT(screen.said, ElementsAre("cell", "cell", "cell", "cell", "cell"));
  key(Qt::Key_Right);
  EXPECT_EQ(screen.said.size(), 5U) << "there is nothing further right";
}

TEST_F(GridWidgetTest, TheFirstArrowGoesToTheFirstControl) {
  screen.NameText.hide();
  screen.AmountText.hide();
  screen.KindList.hide();
  screen.FirstOption.hide();
  screen.SecondOption.hide();
  page.setFocus();
  key(Qt::Key_Right);
  EXPECT_TRUE(screen.Table.hasFocus());
  key(Qt::Key_Right);
  EXPECT_EQ(current(), std::pair(0, 1));
}

TEST_F(GridWidgetTest, MarksTheColumnOfTheCurrentCell) {
  screen.Table.setColumn(2);
  const QRect cell = view().visualRect(view().model()->index(1, 2));
  const QImage drawn = view().viewport()->grab().toImage();
  EXPECT_EQ(drawn.pixelColor(cell.center()), surface.colours().selection());
  const QRect other = view().visualRect(view().model()->index(1, 1));
  EXPECT_EQ(drawn.pixelColor(other.center()), surface.colours().base());
}

TEST_F(GridWidgetTest, EachKindOfCellHasItsBackground) {
  const desktop::Colours& colours = surface.colours();
  const std::vector<std::pair<CellKind, QColor>> cases = {
      {CellKind::text, colours.base()},       {CellKind::value, colours.base()},
      {CellKind::amount, colours.base()},     {CellKind::total, colours.caption()},
      {CellKind::caption, colours.caption()}, {CellKind::heading, colours.heading()},
  };
  for (const auto& [row, column] : {std::pair(0, 0), std::pair(0, 1), std::pair(2, 1)}) {
    for (const auto& [kind, colour] : cases) {
      screen.Table.setKind(row, column, kind);
      const QRect cell = view().visualRect(view().model()->index(row, column));
      const QImage drawn = view().viewport()->grab().toImage();
      EXPECT_EQ(drawn.pixelColor(cell.center()), colour) << row << ' ' << column;
    }
  }
}

TEST_F(GridWidgetTest, ToolTipsShowTextsThatLookLikeMarkupAsTheyAre) {
  for (const QString text : {"<b>Saw</b> & <i>Sons</i>", "Saw", "1 < 2", ""}) {
    screen.Table.setText(1, 1, text.toStdString());
    const auto tip = view().model()->index(1, 1).data(Qt::ToolTipRole).toString();
    const bool markup = Qt::mightBeRichText(tip);
    EXPECT_EQ(markup ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip, text);
  }
}

/// Rows of pixels between the first and the last that is not of the background.
int inkHeight(const QImage& cell) {
  int first = cell.height();
  int last = -1;
  for (int y = 0; y < cell.height(); ++y) {
    for (int x = 0; x < cell.width(); ++x) {
      if (cell.pixelColor(x, y).lightness() > 128) continue;
      first = std::min(first, y);
      last = y;
    }
  }
  return last - first + 1;
}

TEST_F(GridWidgetTest, AnAmountIsDrawnSmallerRatherThanBroken) {
  screen.Table.setRowHeight(1, 450);  // room for two lines
  screen.Table.setColumnWidth(1, 1200);
  screen.Table.setKind(1, 1, CellKind::amount);
  for (const char* text : {"77,777.37", "1,077,777.37", "-1,077,777.37"}) {
    screen.Table.setText(1, 1, text);
    const QRect cell = view().visualRect(view().model()->index(1, 1)).adjusted(2, 2, -2, -2);
    const QImage drawn = view().viewport()->grab(cell).toImage();
    EXPECT_GT(inkHeight(drawn), 4) << text;
    EXPECT_LT(inkHeight(drawn), 13) << text << " in two lines";
  }
}

TEST_F(GridWidgetTest, CaptionsStayInSightWhileThePageScrolls) {
  constexpr int columns = 40;
  screen.Table.setRows(60);
  screen.Table.setColumns(columns);
  for (int row = 0; row < 60; ++row) {
    screen.Table.setKind(row, 0, CellKind::caption);
  }
  const int width = columns * screen.Table.columnWidth(1) + 60;
  const int height = 60 * screen.Table.rowHeight(1) + 45;
  screen.Table.setPlace({0, 0, width, height});
  screen.setPlace({0, 0, width, height});
  root.setPlace({0, 0, width, height});
  QApplication::processEvents();
  const auto shown = [this] {
    int count = 0;
    for (const QWidget* strip : view().findChildren<desktop::CaptionStrip*>()) {
      count += strip->isVisible() ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(shown(), 0);
  screen.Table.SetFocus();
  key(Qt::Key_End);
  for (int i = 0; i < 50; ++i) key(Qt::Key_Down);
  ASSERT_EQ(std::pair(screen.Table.row(), screen.Table.column()), std::pair(50, columns - 1));
  EXPECT_EQ(shown(), 3);
  const QImage drawn = page.viewport()->grab().toImage();
  EXPECT_EQ(drawn.pixelColor(8, drawn.height() / 2), surface.colours().caption());
  const QPoint left_edge(8, page.viewport()->height() / 2);
  QWidget* const strip = page.viewport()->childAt(left_edge);
  ASSERT_NE(qobject_cast<desktop::CaptionStrip*>(strip), nullptr);
  screen.said.clear();
  QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier,
                    strip->mapFrom(page.viewport(), left_edge));
  EXPECT_EQ(screen.Table.column(), 0);
  EXPECT_GT(screen.Table.row(), 30);
  EXPECT_THAT(screen.said, ElementsAre("cell"));
}

/// Draws as another does, and counts what that is asked for.
struct CountingDelegate : QStyledItemDelegate {
  explicit CountingDelegate(QAbstractItemView& view) : QStyledItemDelegate(&view) {
    drawing = view.itemDelegate();
    view.setItemDelegate(this);
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ++cells;
    drawing->paint(painter, option, index);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    ++cells;
    return drawing->sizeHint(option, index);
  }

  QAbstractItemDelegate* drawing;
  mutable int cells = 0;
};

TEST_F(GridWidgetTest, OfAFullRegisterOnlyCellsInSightAreDrawn) {
  constexpr int columns = 32767;
  constexpr int rows = 73;
  screen.Table.setRedraw(false);
  screen.Table.setRows(rows);
  screen.Table.setColumns(columns);
  for (int column = 0; column < columns; ++column) screen.Table.setColumnWidth(column, 1200);
  screen.Table.setText(5, columns - 1, "last");
  const int width = columns * 1200 + 60;
  const int height = rows * 450 + 45;
  screen.Table.setMinimumRowHeight(450);
  screen.Table.setPlace({0, 0, width, height});
  screen.setPlace({0, 0, width, height});
  root.setPlace({0, 0, width, height});
  const CountingDelegate& drawn = *new CountingDelegate(view());
  screen.Table.setRedraw(true);
  QApplication::processEvents();
  // 80 by 30 pixels each, in a page of 800 by 600, drawn twice at most.
  constexpr int in_sight = 2 * 11 * 21;
  EXPECT_LE(drawn.cells, in_sight) << "to lay out";
  EXPECT_GT(drawn.cells, 100);
  QScrollBar& bar = *page.horizontalScrollBar();
  EXPECT_EQ(view().width(), columns * 80 + 4);
  for (int step = 1; step <= 100; ++step) {
    const int before = drawn.cells;
    bar.setValue(bar.maximum() / 100 * step);
    QApplication::processEvents();
    ASSERT_LE(drawn.cells - before, in_sight) << "step " << step;
  }
  const int before = drawn.cells;
  screen.Table.SetFocus();
  key(Qt::Key_End);
  EXPECT_EQ(screen.Table.column(), columns - 1);
  EXPECT_LE(drawn.cells - before, 2 * in_sight) << "to select the last column";
  EXPECT_GT(bar.value(), bar.maximum() - 200) << "and show it";
}

}  // namespace
}  // namespace depcalc::testing
