#include "host/postgresql/server_schema.h"

#include <string>

#include "host/postgresql/server_tables.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

constexpr const char* no_such_table = "42P01";
constexpr const char* no_such_schema = "3F000";

/// Any number does that nobody else takes: "DCsc".
constexpr std::int64_t making_schema = 0x4443'7363;

void requireServer(Connection& connection, const ServerAddress& address) {
  const Rows server = connection.run(
      "SELECT current_setting('server_version_num')::bigint, current_setting('server_encoding')");
  if (server.integer(0, 0) < 150'000) {
    throw FileTrouble(Kind::failed, address.text +
                                        " runs a PostgreSQL that is too old. Companies "
                                        "need version 15 or newer.");
  }
  if (server.text(0, 1) != "UTF8") {
    throw FileTrouble(Kind::failed, address.text + " keeps its texts as " +
                                        std::string(server.text(0, 1)) +
                                        ". Companies need a database with the encoding UTF8.");
  }
}

/// 0 where there is no schema yet.
std::int64_t formOf(Connection& connection) {
  const Rows made = connection.run("SELECT to_regclass('depcalc.schema_version') IS NOT NULL");
  if (!made.isTrue(0, 0)) return 0;
  return connection.run("SELECT coalesce(max(version), 0) FROM depcalc.schema_version")
      .integer(0, 0);
}

void requireNotNewer(std::int64_t form, const ServerAddress& address) {
  if (form <= server_form) return;
  throw FileTrouble(Kind::newer, address.text + " keeps its companies in format " +
                                     std::to_string(form) +
                                     ", which a newer version of the "
                                     "program made. Update the program here.");
}

void migrate(Connection& connection, std::int64_t form) {
  for (std::int64_t next = form + 1; next <= server_form; ++next) {
    // A statement with parameters stands alone; a block holds as many as there are.
    connection.run(server_migrations[static_cast<std::size_t>(next - 1)]);
    connection.run("INSERT INTO depcalc.schema_version (version) VALUES ($1)",
                   Parameters().integer(next));
  }
}

}  // namespace

bool makeServerSchema(Connection& connection, const ServerAddress& address) {
  requireServer(connection, address);
  connection.run("BEGIN");
  connection.run("SELECT pg_advisory_xact_lock($1)", Parameters().integer(making_schema));
  const std::int64_t form = formOf(connection);
  requireNotNewer(form, address);
  migrate(connection, form);
  connection.run("COMMIT");
  return form < server_form;
}

void requireServerSchema(Connection& connection, const ServerAddress& address) {
  requireServer(connection, address);
  std::int64_t form = 0;
  try {
    form = formOf(connection);
  } catch (const ServerTrouble& trouble) {
    if (trouble.code() != no_such_table && trouble.code() != no_such_schema) throw;
  }
  requireNotNewer(form, address);
  if (form < server_form) {
    throw FileTrouble(Kind::not_found, address.text +
                                           " has no place for companies yet. Whoever looks "
                                           "after the server makes it with `depcalc server init`.");
  }
  connection.run(
      "SELECT set_config('search_path', 'pg_catalog', false),"
      " set_config('synchronous_commit', CASE current_setting('synchronous_commit') WHEN 'off'"
      " THEN 'on' ELSE current_setting('synchronous_commit') END, false),"
      " set_config('tcp_keepalives_idle', '30', false),"
      " set_config('tcp_keepalives_interval', '10', false),"
      " set_config('tcp_keepalives_count', '3', false),"
      " set_config('lock_timeout', '10s', false)");
}

}  // namespace depcalc
