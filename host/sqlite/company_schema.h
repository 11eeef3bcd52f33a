// The tables of a company file.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/sqlite/database.h"

namespace depcalc {

/// The size of its pages.
inline constexpr int company_page_size = 8'192;

/// The form of a company file with the data table `table` in it. The form tells programs that do
/// not know the table to keep their hands off the file; without such a table it is the first.
std::int64_t formWith(std::string_view table);
inline constexpr std::int64_t first_form = 1;

/// The form that the file says it has.
std::int64_t formOf(Database& database);
/// Part of the transaction that is open.
void setForm(Database& database, std::int64_t form);

/// Makes the tables in an empty database, of the first form.
void createSchema(Database& database);

/// Throws a FileTrouble unless the descriptions of all tables are on the file's first page. Done
/// before SQLite reads them, which could take time and memory without bound.
void requireSmallSchema(Database& database);

/// Throws a FileTrouble unless the database has exactly the tables of a company file: nothing
/// missing, nothing different, and no table, index, trigger or view besides.
void requireSchema(Database& database);

}  // namespace depcalc
