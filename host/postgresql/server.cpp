#include "host/postgresql/server.h"

#include "host/postgresql/connection.h"
#include "host/postgresql/lock_user.h"
#include "host/postgresql/server_schema.h"

namespace depcalc {
namespace {

using Kind = FileTrouble::Kind;

/// A session at a server, and what it needs to live.
struct Session {
  explicit Session(const std::string& text)
      : address(ServerAddress::of(text)),
        libpq(loadedLibpq()),
        connection(libpq, address, "depcalc") {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  ServerAddress address;
  Libpq libpq;
  Connection connection;
};

void requireNoCompany(const ServerAddress& address) {
  if (address.company.empty()) return;
  throw FileTrouble(Kind::failed, address.text +
                                      " names a company. Leave it out: this is about "
                                      "all of " +
                                      address.server + ".");
}

void requireRole(Connection& connection, const std::string& role) {
  const Rows known =
      connection.run("SELECT 1 FROM pg_roles WHERE rolname = $1", Parameters().text(role));
  if (known.count() > 0) return;
  throw FileTrouble(Kind::not_found, "There is no role " + role +
                                         " on the server. CREATE ROLE makes it; then try again.");
}

/// 0 for all companies.
std::int64_t companyOf(Connection& connection, const ServerAddress& address) {
  if (address.company.empty()) return 0;
  const Rows found = connection.run("SELECT id FROM depcalc.company WHERE filed_as = $1",
                                    Parameters().text(address.company));
  if (found.count() > 0) return found.integer(0, 0);
  throw FileTrouble(Kind::not_found, address.text + " does not exist.");
}

/// Row-level security says which rows; these say that there is something to ask for.
void openSchema(Connection& connection, const std::string& role, ServerRight right) {
  // A name in a statement can be no parameter; the server itself quotes it.
  const auto grant = [&](const char* what) {
    const Rows quoted = connection.run("SELECT format('GRANT ' || $2 || ' TO %I', $1)",
                                       Parameters().text(role).text(what));
    connection.run(std::string(quoted.text(0, 0)).c_str());
  };
  grant("USAGE ON SCHEMA depcalc");
  grant("SELECT ON ALL TABLES IN SCHEMA depcalc");
  if (right != ServerRight::edit) return;
  grant(
      "INSERT, UPDATE, DELETE ON depcalc.company, depcalc.data_table, depcalc.record,"
      " depcalc.company_use");
}

}  // namespace

bool initServer(const std::string& address) {
  Session session(address);
  requireNoCompany(session.address);
  return makeServerSchema(session.connection, session.address);
}

std::vector<ServerCompany> companiesOf(const std::string& address) {
  Session session(address);
  requireServerSchema(session.connection, session.address);
  const Rows rows =
      session.connection.run("SELECT id, filed_as FROM depcalc.company ORDER BY filed_as");
  std::vector<ServerCompany> companies;
  for (int row = 0; row < rows.count(); ++row) {
    const ServerAddress company = session.address.withCompany(rows.text(row, 1));
    companies.push_back({company.text, company.company,
                         lockUser(session.connection, lockKey(company), rows.integer(row, 0))});
  }
  return companies;
}

void giveRight(const std::string& address, const std::string& role, ServerRight right) {
  Session session(address);
  Connection& connection = session.connection;
  requireServerSchema(connection, session.address);
  requireRole(connection, role);
  const std::int64_t company = companyOf(connection, session.address);
  connection.run("BEGIN");
  connection.run(
      "DELETE FROM depcalc.permission WHERE role_name = $1"
      " AND company_id IS NOT DISTINCT FROM nullif($2, 0)",
      Parameters().text(role).integer(company));
  if (right != ServerRight::none) {
    connection.run(
        "INSERT INTO depcalc.permission (company_id, role_name, may_edit)"
        " VALUES (nullif($2, 0), $1, $3 <> 0)",
        Parameters().text(role).integer(company).integer(right == ServerRight::edit ? 1 : 0));
    openSchema(connection, role, right);
  }
  connection.run("COMMIT");
}

}  // namespace depcalc
