// The server of a test program, and companies on it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/postgresql/company_file.h"
#include "host/postgresql/server.h"
#include "tests/support/postgres_server.h"

namespace depcalc::testing_support {

using ServerFile = std::shared_ptr<PostgresCompanyFile>;

/// Started with the first test that asks for it, with room for companies.
PostgresServer& testServer();
/// The address of a company that no other test has.
std::string newAddress(const std::string& user = "postgres");

PostgresCompanyFile::Options serverOptions();

/// Throws the trouble.
ServerFile openOf(const PostgresCompanyFile::Opened& answer);
/// What stands in the way, or "".
std::string troubleOf(const PostgresCompanyFile::Opened& answer);

}  // namespace depcalc::testing_support
