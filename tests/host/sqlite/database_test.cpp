// What a connection to a database refuses by itself, whatever the file holds.
#include "host/sqlite/database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <tuple>

#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

sqlite3* opened_last = nullptr;

int remember(sqlite3* handle, char** /*message*/, const sqlite3_api_routines* /*routines*/) {
  opened_last = handle;
  return SQLITE_OK;
}

/// A new database, and the library's own view of it.
class DatabaseConnection : public ::testing::Test {
 protected:
  using Extension = void (*)();

  DatabaseConnection() {
    sqlite3_auto_extension(reinterpret_cast<Extension>(remember));
    database_.emplace(directory_.path() + "/a.db", Database::Access::create, "");
    sqlite3_cancel_auto_extension(reinterpret_cast<Extension>(remember));
  }

  testing_support::TemporaryDirectory directory_;
  std::optional<Database> database_;
};

TEST_F(DatabaseConnection, RunsNothingOutOfTheFile) {
  for (const auto& [what, option, on] :
       {std::tuple{"defensive", SQLITE_DBCONFIG_DEFENSIVE, 1},
        {"trusted schema", SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {"triggers", SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
        {"views", SQLITE_DBCONFIG_ENABLE_VIEW, 0},
        {"extensions", SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
        {"double-quoted strings in statements", SQLITE_DBCONFIG_DQS_DML, 0},
        {"double-quoted strings in schemas", SQLITE_DBCONFIG_DQS_DDL, 0}}) {
    int is_on = -1;
    ASSERT_EQ(sqlite3_db_config(opened_last, option, -1, &is_on), SQLITE_OK) << what;
    EXPECT_EQ(is_on, on) << what;
  }
}

TEST_F(DatabaseConnection, BoundsWhatTheFileCanTake) {
  EXPECT_EQ(sqlite3_limit(opened_last, SQLITE_LIMIT_ATTACHED, -1), 0);
  EXPECT_EQ(sqlite3_limit(opened_last, SQLITE_LIMIT_LENGTH, -1), 4'195'328);
  EXPECT_EQ(database_->integer("PRAGMA cell_size_check"), 1);
  EXPECT_EQ(database_->integer("PRAGMA mmap_size"), 0);
  EXPECT_EQ(database_->integer("PRAGMA temp_store"), 2) << "in memory";
}

TEST_F(DatabaseConnection, ReadsWhatIsNoTextAsAnEmptyOne) {
  EXPECT_EQ(database_->text("SELECT NULL"), "");
  EXPECT_EQ(database_->text("SELECT 1 WHERE 0"), "");
}

}  // namespace
}  // namespace depcalc
