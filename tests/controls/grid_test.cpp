#include "controls/grid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "controls/user.h"
#include "tests/support/scripted_site.h"
#include "tests/support/trace_lines.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Screen : UserControl {
  explicit Screen(Stage& stage) : UserControl(stage, "Screen") {}

  Grid grid{*this, "Table", 3, 2};
};

struct GridTest : ::testing::Test {
  GridTest() { screen.show(); }

  testing::ScriptedSite site;
  testing::TraceLines trace;
  Stage stage{site, &trace};
  User user{stage};
  Screen screen{stage};
  Grid& grid = screen.grid;
};

TEST_F(GridTest, HasTwoRowsAndColumnsUnlessToldOtherwise) {
  const Grid usual(screen, "Usual");
  EXPECT_EQ(usual.rows(), 2);
  EXPECT_EQ(usual.columns(), 2);
}

int errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST_F(GridTest, KeepsTextsByRowAndColumn) {
  grid.setText(0, 0, "a");
  grid.setText(2, 1, "last");
  grid.setText(1, 1, "middle");
  grid.setText(1, 1, "mid");
  grid.setText(0, 1, "first of all");
  EXPECT_EQ(grid.text(0, 0), "a");
  EXPECT_EQ(grid.text(1, 0), "");
  EXPECT_EQ(grid.text(0, 1), "first of all");
  EXPECT_EQ(grid.text(1, 1), "mid");
  EXPECT_EQ(grid.text(2, 1), "last");
}

TEST_F(GridTest, KeepsTheCellsThatRemain) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 2; ++column) {
      grid.setText(row, column, std::to_string(row) + std::to_string(column));
    }
  }
  grid.setRows(5);
  grid.setColumns(3);
  EXPECT_EQ(grid.text(2, 1), "21");
  EXPECT_EQ(grid.text(4, 2), "");
  grid.setText(4, 0, "40");
  grid.setRows(2);
  grid.setColumns(1);
  EXPECT_EQ(grid.text(1, 0), "10");
  grid.setRows(5);
  EXPECT_EQ(grid.text(4, 0), "") << "what was cut off does not come back";
}

TEST_F(GridTest, RefusesCellsOutsideItAsError9) {
  const std::vector<std::function<void()>> actions = {
      [&] { static_cast<void>(grid.text(3, 0)); },
      [&] { static_cast<void>(grid.text(0, 2)); },
      [&] { static_cast<void>(grid.text(-1, 0)); },
      [&] { grid.setText(0, -1, "x"); },
      [&] { static_cast<void>(grid.alignment(3, 0)); },
      [&] { grid.setAlignment(3, 0, CellAlignment::rightTop); },
      [&] { grid.setColumnAlignment(2, CellAlignment::rightTop); },
      [&] { static_cast<void>(grid.kind(0, 2)); },
      [&] { static_cast<void>(grid.bold(3, 0)); },
      [&] { grid.setKind(3, 0, CellKind::amount); },
      [&] { grid.setRow(3); },
      [&] { grid.setColumn(2); },
      [&] { static_cast<void>(grid.rowHeight(3)); },
      [&] { static_cast<void>(grid.columnWidth(2)); },
      [&] { grid.setRowHeight(-1, 1); },
      [&] { grid.setColumnWidth(2, 1); },
      [&] { static_cast<void>(grid.rowData(3)); },
      [&] { grid.setColumnData(2, 1); },
      [&] { grid.setTopRow(3); },
      [&] { grid.setLeftColumn(-1); },
      [&] { user.clickCell(grid, 3, 0); },
  };
  for (std::size_t i = 0; i < actions.size(); ++i) EXPECT_EQ(errorOf(actions[i]), 9) << i;
}

TEST_F(GridTest, RefusesNegativeSizesAsError5) {
  EXPECT_EQ(errorOf([&] { grid.setRows(-1); }), 5);
  EXPECT_EQ(errorOf([&] { grid.setColumns(-1); }), 5);
  EXPECT_EQ(errorOf([&] { grid.setRowHeight(0, -1); }), 5);
  EXPECT_EQ(errorOf([&] { grid.setColumnWidth(0, -1); }), 5);
  EXPECT_EQ(errorOf([&] { grid.setMinimumRowHeight(-1); }), 5);
  EXPECT_EQ(grid.rows(), 3);
}

TEST_F(GridTest, RaisesRowsToTheMinimumButLetsThemVanish) {
  grid.setRowHeight(0, 100);
  EXPECT_EQ(grid.rowHeight(0), 100);
  grid.setRowHeight(1, 0);
  grid.setMinimumRowHeight(450);
  EXPECT_EQ(grid.rowHeight(0), 450);
  EXPECT_EQ(grid.rowHeight(1), 0);
  grid.setRowHeight(1, 1);
  EXPECT_EQ(grid.rowHeight(1), 450);
  grid.setRowHeight(2, 900);
  EXPECT_EQ(grid.rowHeight(2), 900);
  grid.setRows(4);
  EXPECT_EQ(grid.rowHeight(3), 450);
  EXPECT_EQ(grid.columnWidth(0), Grid::default_column_width);
}

TEST_F(GridTest, AlignsColumnsAndSingleCells) {
  EXPECT_EQ(grid.alignment(0, 0), CellAlignment::leftCenter);
  grid.setColumnAlignment(1, CellAlignment::centerTop);
  grid.setAlignment(0, 1, CellAlignment::leftBottom);
  grid.setKind(0, 1, CellKind::heading);
  grid.setRows(4);
  EXPECT_EQ(grid.alignment(0, 1), CellAlignment::leftBottom);
  EXPECT_EQ(grid.alignment(3, 1), CellAlignment::centerTop) << "rows to come included";
  EXPECT_EQ(grid.alignment(3, 0), CellAlignment::leftCenter);
  grid.setColumnAlignment(1, CellAlignment::rightBottom);
  EXPECT_EQ(grid.alignment(0, 1), CellAlignment::rightBottom);
  EXPECT_EQ(grid.kind(0, 1), CellKind::heading) << "an alignment leaves the kind alone";
  grid.setKind(0, 1, CellKind::text);
  EXPECT_EQ(grid.alignment(0, 1), CellAlignment::rightBottom) << "and the other way round";
}

TEST_F(GridTest, KnowsOfEachCellWhatItIs) {
  struct Case {
    CellKind kind;
    bool bold;
    bool amount;
  };
  constexpr std::array cases = {
      Case{CellKind::text, false, false},   Case{CellKind::value, false, false},
      Case{CellKind::amount, false, true},  Case{CellKind::total, true, true},
      Case{CellKind::caption, true, false}, Case{CellKind::heading, true, false},
  };
  for (const Case& each : cases) {
    for (const CellAlignment alignment : {CellAlignment::leftTop, CellAlignment::rightBottom}) {
      grid.setAlignment(1, 1, alignment);
      grid.setKind(1, 1, each.kind);
      EXPECT_EQ(grid.kind(1, 1), each.kind);
      EXPECT_EQ(grid.alignment(1, 1), alignment);
      EXPECT_EQ(grid.bold(1, 1), each.bold);
      EXPECT_EQ(isAmount(each.kind), each.amount);
      EXPECT_EQ(grid.Picture().cell(1, 1).kind, each.kind);
    }
  }
  EXPECT_EQ(grid.kind(0, 1), CellKind::text) << "the others are as they were";
  grid.setRows(1);
  grid.setRows(3);
  EXPECT_EQ(grid.kind(1, 1), CellKind::text) << "what was cut off does not come back";
}

TEST_F(GridTest, TellsOfAnotherKindOnce) {
  std::vector<Aspect> heard;
  const auto observation = grid.observe([&](Aspect aspect) { heard.push_back(aspect); });
  grid.setKind(0, 0, CellKind::caption);
  grid.setKind(0, 0, CellKind::caption);
  EXPECT_THAT(heard, ElementsAre(Aspect::cells));
}

TEST_F(GridTest, KeepsTheCurrentCellInside) {
  grid.setRow(2);
  grid.setColumn(1);
  grid.setTopRow(2);
  grid.setLeftColumn(1);
  grid.setRows(2);
  grid.setColumns(1);
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(grid.column(), 0);
  EXPECT_EQ(grid.topRow(), 1);
  EXPECT_EQ(grid.leftColumn(), 0);
  grid.setRows(0);
  EXPECT_EQ(grid.row(), 0);
  EXPECT_THAT(grid.Picture().cells, IsEmpty());
}

TEST_F(GridTest, KeepsSpareNumbers) {
  EXPECT_EQ(grid.rowData(2), 0);
  grid.setRowData(2, 450);
  grid.setColumnData(1, -7);
  EXPECT_EQ(grid.rowData(2), 450);
  EXPECT_EQ(grid.columnData(1), -7);
}

TEST_F(GridTest, PicturesOnlyRowsAndColumnsOfSomeSize) {
  grid.setColumns(3);
  for (int column = 0; column < 3; ++column) grid.setText(1, column, "c" + std::to_string(column));
  grid.setKind(1, 0, CellKind::caption);
  grid.setAlignment(1, 2, CellAlignment::rightTop);
  grid.setColumnWidth(1, 0);
  grid.setColumnWidth(2, 1200);
  grid.setRowHeight(0, 0);
  const GridPicture picture = grid.Picture();
  EXPECT_THAT(picture.rows, ElementsAre(1, 2));
  EXPECT_THAT(picture.columns, ElementsAre(0, 2));
  EXPECT_THAT(picture.column_widths, ElementsAre(960, 1200));
  EXPECT_EQ(picture.width(), 2160);
  EXPECT_EQ(picture.height(), 480);
  EXPECT_EQ(picture.cell(0, 0),
            (GridPicture::Cell{"c0", CellAlignment::leftCenter, CellKind::caption}));
  EXPECT_EQ(picture.cell(0, 1), (GridPicture::Cell{"c2", CellAlignment::rightTop, CellKind::text}));
  EXPECT_EQ(picture.cell(1, 1).text, "");
}

TEST_F(GridTest, HoldsItsNewsWhileRedrawIsOff) {
  std::vector<Aspect> heard;
  const auto observation = grid.observe([&](Aspect aspect) { heard.push_back(aspect); });
  grid.setRedraw(false);
  grid.setText(0, 0, "x");
  grid.setText(0, 1, "y");
  grid.setRows(9);
  grid.setTopRow(4);
  grid.setColumn(1);
  EXPECT_THAT(heard, ElementsAre(Aspect::current)) << "the current cell is no drawing";
  heard.clear();
  grid.setRedraw(true);
  EXPECT_THAT(heard, ElementsAre(Aspect::structure, Aspect::cells, Aspect::scroll));
  heard.clear();
  grid.setRedraw(true);
  grid.setText(0, 0, "x");
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(GridTest, RaisesClickForCellsReachedByMouseOrKeyboardOnly) {
  trace.take();
  grid.setColumn(1);
  grid.setColumn(0);
  EXPECT_THAT(trace.take(), IsEmpty());
  user.clickCell(grid, 2, 1);
  EXPECT_TRUE(grid.hasFocus());
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.column(), 1);
  user.clickCell(grid, 2, 1);
  user.arrow(Direction::up);
  EXPECT_EQ(grid.row(), 1);
  user.arrow(Direction::left);
  user.arrow(Direction::left);
  EXPECT_EQ(grid.column(), 0) << "at the edge nothing moves";
  EXPECT_THAT(trace.take(),
              ElementsAre("Table.Click", "Table.Click", "Table.Click", "Table.Click"));
  grid.hide();
  user.clickCell(grid, 0, 0);
  EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_F(GridTest, HoldsTheWidestRegister) {
  constexpr int columns = 32767;
  constexpr int rows = 73;
  grid.setRedraw(false);
  grid.setColumns(columns);
  grid.setRows(rows);
  for (int column = 0; column < columns; ++column) {
    for (int row = 0; row < rows; row += 2) grid.setText(row, column, "1,234.56");
  }
  EXPECT_EQ(grid.text(72, columns - 1), "1,234.56");
  EXPECT_EQ(grid.text(71, columns - 1), "");
}

}  // namespace
}  // namespace depcalc
