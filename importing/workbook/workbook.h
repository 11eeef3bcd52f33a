// Workbooks of spreadsheet programs (Office Open XML, ECMA-376).
#pragma once

#include <string>
#include <variant>

#include "importing/file_table.h"

namespace depcalc {

/// The first sheet that shows of the .xlsx workbook at `path`, the first `most_rows` of its rows;
/// every row as wide as the widest. Else why there is none, and what to do.
std::variant<FileTable, std::string> tableOfWorkbook(const std::string& path,
                                                     std::size_t most_rows);

}  // namespace depcalc
