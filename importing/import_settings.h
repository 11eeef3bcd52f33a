// How a file of assets is to be read: found out from the file, and corrected by its reader.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "importing/date_forms.h"
#include "importing/file_table.h"
#include "importing/header_words.h"
#include "importing/number_forms.h"
#include "importing/text_encoding.h"

namespace depcalc {

struct ImportSettings {
  Encoding encoding = Encoding::utf8;
  char separator = ',';
  DecimalSign decimal = DecimalSign::point;
  DateOrder dates = DateOrder::month_day_year;
  std::size_t header_row = 1;    ///< which of the table's rows names the columns, from 1; 0 none
  std::vector<ColumnUse> uses;   ///< of each column of the file
  std::string method;            ///< of assets without one: a code, or ""
  std::string convention = "0";  ///< of assets without one: a digit
};

/// What can be read in two ways, by one of the file's own texts; empty where nothing is.
struct OpenQuestions {
  std::string date;    ///< two different days
  std::string number;  ///< two different numbers
};

/// The first row that names two columns or more; else the first row where it holds no number and no
/// date, and none where it does.
std::size_t detectedHeaderRow(const FileTable& table);

/// The width of the table: that of the row of names, without one of its first row.
std::size_t widthOf(const FileTable& table, std::size_t header_row);

/// The names of the columns; "Column 3" where there is none.
std::vector<std::string> headerOf(const FileTable& table, std::size_t header_row);

/// Finds out decimal sign and order of dates from every row behind the header, in the columns that
/// `settings` has numbers and dates in. Where no row decides, the separator is the best guess, and
/// what would then be read by it is an open question.
OpenQuestions detectForms(const FileTable& table, ImportSettings& settings);

}  // namespace depcalc
