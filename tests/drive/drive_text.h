// How what is on a screen reads as text.
#pragma once

#include <ostream>
#include <string>

#include "controls/grid.h"
#include "controls/user_control.h"
#include "engine/calculate_dep.h"
#include "host/host.h"
#include "tests/drive/page_recorder.h"

namespace depcalc::drive {

/// The text of a control in one line: line breaks as \n, tabs as \t. A list reads as its choice,
/// an option "(*)" or "( )" and its caption, a grid "4 rows, 3 columns", a picture as its name.
std::string textOf(const Control& control);

/// The name of `screen`, then a line for each visible control: "NAME: TEXT", "*NAME: TEXT" for
/// the one that has the focus.
void printScreen(std::ostream& out, const UserControl& screen);
/// A line for each row, cells separated by tabs.
void printGrid(std::ostream& out, const Grid& grid);
/// A line for each property, "AssetBasis=1000".
void printRecord(std::ostream& out, const CalculateDep& record);
/// A line for each value of each record: index, name, type and text, separated by tabs.
void printTable(std::ostream& out, HostTable& table);
/// For each page its texts with their positions and its pictures' rows and columns.
void printPages(std::ostream& out, const std::vector<PageRecorder::Page>& pages);

}  // namespace depcalc::drive
