#include "host/sqlite/company_schema.h"

#include <array>
#include <string_view>

#include "host/sqlite/company_path.h"
#include "host/units_table.h"

namespace depcalc {
namespace {

struct SchemaTable {
  std::string_view name;
  std::string_view sql;
};

// The texts are compared with what the file says, to the letter.
constexpr std::array<SchemaTable, 3> schema{{
    {"company", R"(CREATE TABLE company (
  id INTEGER PRIMARY KEY CHECK (id = 1),
  name TEXT NOT NULL,
  first_month INTEGER NOT NULL,
  mode TEXT NOT NULL,
  digest INTEGER NOT NULL
))"},
    {"data_table", R"(CREATE TABLE data_table (
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL,
  records INTEGER NOT NULL,
  tally INTEGER NOT NULL
))"},
    {"record", R"(CREATE TABLE record (
  id INTEGER PRIMARY KEY,
  fields TEXT NOT NULL,
  digest INTEGER NOT NULL
))"},
}};

constexpr std::int64_t form_with_units = 2;
static_assert(form_with_units <= company_format);

FileTrouble unexpected(const Database& database, const std::string& what) {
  return {FileTrouble::Kind::damaged,
          database.path() + " does not have the structure of a company file: " + what +
              ". Restore a backup.",
          {what}};
}

}  // namespace

std::int64_t formWith(std::string_view table) {
  return table == units_table_name ? form_with_units : first_form;
}

std::int64_t formOf(Database& database) { return database.integer("PRAGMA user_version"); }

void setForm(Database& database, std::int64_t form) {
  database.execute("PRAGMA user_version = " + std::to_string(form));
}

void createSchema(Database& database) {
  database.execute("PRAGMA application_id = " + std::to_string(company_application_id));
  setForm(database, first_form);
  for (const SchemaTable& table : schema) database.execute(std::string(table.sql));
}

void requireSmallSchema(Database& database) {
  // Where SQLite's file format has the size of pages and the kind of the first one.
  const std::string page = database.beginning(101);
  const int size =
      static_cast<unsigned char>(page[16]) * 256 + static_cast<unsigned char>(page[17]);
  constexpr char leaf_of_table = 13;
  if (size == company_page_size && page[100] == leaf_of_table) return;
  throw unexpected(database, "its tables are not described in the expected place");
}

void requireSchema(Database& database) {
  Statement found = database.prepare("SELECT type, name, sql FROM sqlite_schema ORDER BY rowid");
  std::size_t tables = 0;
  while (found.step()) {
    const bool expected = tables < schema.size() && found.text(0) == "table" &&
                          found.text(1) == schema[tables].name &&
                          found.text(2) == schema[tables].sql;
    if (!expected) {
      throw unexpected(database, "the " + std::string(found.text(0)) + " " +
                                     std::string(found.text(1)) + " does not belong in it");
    }
    ++tables;
  }
  if (tables < schema.size()) {
    throw unexpected(database, "the table " + std::string(schema[tables].name) + " is missing");
  }
}

}  // namespace depcalc
