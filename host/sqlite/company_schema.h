// The tables of a company file.
#pragma once

#include "host/sqlite/database.h"

namespace depcalc {

/// A record's id is its table's id times this, plus its index.
inline constexpr std::int64_t records_per_table = 65'536;

/// A company file has no more data tables. Their ids are 1 and up.
inline constexpr std::int64_t most_tables = 16;

/// The size of its pages.
inline constexpr int company_page_size = 8'192;

/// Makes the tables in an empty database.
void createSchema(Database& database);

/// Throws a FileTrouble unless the descriptions of all tables are on the file's first page. Done
/// before SQLite reads them, which could take time and memory without bound.
void requireSmallSchema(Database& database);

/// Throws a FileTrouble unless the database has exactly the tables of a company file: nothing
/// missing, nothing different, and no table, index, trigger or view besides.
void requireSchema(Database& database);

}  // namespace depcalc
