// The schema in which a server keeps companies.
#pragma once

#include <cstdint>

#include "host/postgresql/connection.h"

namespace depcalc {

/// The newest form of the schema that this program knows.
inline constexpr std::int64_t server_form = 1;

/// Makes the schema, or brings an older form of it up to date, in one transaction. False where
/// there was nothing to do. Throws a FileTrouble.
bool makeServerSchema(Connection& connection, const ServerAddress& address);

/// Throws a FileTrouble unless the database has the schema in a form that this program knows, and
/// sets the session up for it: texts of the database are UTF-8, and what is committed is on the
/// server's disk.
void requireServerSchema(Connection& connection, const ServerAddress& address);

}  // namespace depcalc
