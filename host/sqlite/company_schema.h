// The tables of a company file.
#pragma once

#include "host/sqlite/database.h"

namespace depcalc {

/// A record's id is its table's id times this, plus its index.
inline constexpr std::int64_t records_per_table = 65'536;

/// Makes the tables in an empty database.
void createSchema(Database& database);

/// Throws a FileTrouble unless the database has exactly the tables of a company file: nothing
/// missing, nothing different, and no table, index, trigger or view besides.
void requireSchema(Database& database);

}  // namespace depcalc
