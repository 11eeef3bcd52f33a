// How what is on a screen reads as text.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "controls/grid.h"
#include "controls/user_control.h"
#include "engine/calculate_dep.h"
#include "host/host.h"
#include "tests/drive/page_recorder.h"

namespace depcalc::drive {

/// Line breaks as \n, tabs as \t.
std::string inOneLine(std::string_view text);

/// The text of a control in one line. A list reads as its choice,
/// an option "(*)" or "( )" and its caption, a grid "4 rows, 3 columns", a picture as its name.
std::string textOf(const Control& control);

/// The name of `screen`, then a line for each visible control: "NAME: TEXT", "*NAME: TEXT" for
/// the one that has the focus.
void printScreen(std::ostream& out, const UserControl& screen);
/// A line for each row, cells separated by tabs.
void printGrid(std::ostream& out, const Grid& grid);
/// "place NAME LEFT TOP WIDTH HEIGHT shown|hidden stacking N", in twips; the higher stacking lies
/// in front.
void printPlace(std::ostream& out, std::string_view name, const Control& control);
/// What a grid keeps of its rows and columns, a line each: "widths …", "heights …",
/// "columndata …", "rowdata …", "current ROW COL", "first ROW COL", "redraw on|off" and "least N",
/// the minimum row height.
void printSizes(std::ostream& out, const Grid& grid);
/// A line for each row: "look ROW" and each cell's alignment, lt lc lb ct cc cb rt rc rb (left,
/// centre or right; top, centre or bottom), "*" behind that of a bold cell.
void printLooks(std::ostream& out, const Grid& grid);
/// A line for each property, "AssetBasis=1000".
void printRecord(std::ostream& out, const CalculateDep& record);
/// A line for each value of each record: index, name, type and text, separated by tabs.
void printTable(std::ostream& out, HostTable& table);
/// For each page its texts with their positions and its pictures' rows and columns.
void printPages(std::ostream& out, const std::vector<PageRecorder::Page>& pages);

}  // namespace depcalc::drive
