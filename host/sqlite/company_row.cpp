#include "host/sqlite/company_row.h"

#include <string>

#include "host/sqlite/company_schema.h"
#include "host/stored/digest.h"

namespace depcalc {

std::uint64_t companyDigest(const CompanyInfo& info, std::string_view table_lines) {
  std::string text = info.name + '\n' + std::to_string(info.first_month) + '\n';
  text.append(info.multi_user ? multi_user : single_user).append("\n").append(table_lines);
  return digestOf(text, 0);
}

void putCompany(Database& database, const CompanyInfo& info, std::uint64_t digest) {
  Statement put = database.prepare(
      "INSERT INTO company (id, name, first_month, mode, digest) VALUES (1, ?, ?, ?, ?)"
      " ON CONFLICT (id) DO UPDATE SET name = excluded.name, first_month = excluded.first_month,"
      " mode = excluded.mode, digest = excluded.digest WHERE name IS NOT excluded.name"
      " OR first_month IS NOT excluded.first_month OR mode IS NOT excluded.mode"
      " OR digest IS NOT excluded.digest");
  put.bind(1, std::string_view(info.name)).bind(2, std::int64_t{info.first_month});
  put.bind(3, info.multi_user ? multi_user : single_user);
  put.bind(4, static_cast<std::int64_t>(digest)).run();
}

void writeNewCompany(Database& database, const CompanyInfo& info) {
  database.execute("PRAGMA page_size = " + std::to_string(company_page_size));
  database.execute("BEGIN IMMEDIATE");
  createSchema(database);
  putCompany(database, info, companyDigest(info, ""));
  database.execute("COMMIT");
}

}  // namespace depcalc
