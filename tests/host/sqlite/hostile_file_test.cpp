// Company files that somebody made to do harm: refused soon and with little memory.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <iostream>

#include "tests/host/sqlite/company_fixture.h"
#include "tests/support/effort.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using namespace testing_support;

constexpr const char* read_truly = "";  // no message at all

double ownMegabytes() {
  std::ifstream file("/proc/self/statm");
  long all = 0;
  long resident = 0;
  file >> all >> resident;
  return static_cast<double>(resident * ::sysconf(_SC_PAGESIZE)) / 1'048'576;
}

/// What became of opening a file in a process of its own.
struct Outcome {
  bool ended = false;    ///< by itself, not by a signal
  bool changed = false;  ///< something else was read than was written
  std::string message;   ///< of a refusal; empty when the file was read
  double seconds = 0;    ///< of work; whoever waits is ended, because others may be at work, too
  double megabytes = 0;  ///< most memory at once, beyond what the test itself holds
};

class HostileCompanyFile : public SampleCompanyFile {
 protected:
  /// Runs statements on the file as any program could.
  void sql(const std::string& statements) const {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &handle), SQLITE_OK);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    char* problem = nullptr;
    sqlite3_exec(handle, ("PRAGMA synchronous = OFF; " + statements).c_str(), nullptr, nullptr,
                 &problem);
    EXPECT_EQ(problem, nullptr) << problem << ": " << statements.substr(0, 100);
    sqlite3_free(problem);
    sqlite3_close(handle);
  }

  Outcome openElsewhere() const {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    const double own = ownMegabytes();
    const pid_t child = ::fork();
    if (child == 0) {
      ::alarm(240);
      ::_exit(openAndTell(ends[1]));
    }
    ::close(ends[1]);
    Outcome outcome;
    char part[4096];
    for (ssize_t count = 0; (count = ::read(ends[0], part, sizeof part)) > 0;) {
      outcome.message.append(part, static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    int status = 0;
    struct rusage used {};
    ::wait4(child, &status, 0, &used);
    outcome.ended = WIFEXITED(status);
    outcome.changed = WIFEXITED(status) && WEXITSTATUS(status) == 2;
    const auto seconds = [](const struct timeval& time) {
      return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    outcome.seconds = seconds(used.ru_utime) + seconds(used.ru_stime);
    outcome.megabytes = static_cast<double>(used.ru_maxrss) / 1024 - own;
    return outcome;
  }

  /// Nothing but its path is known of a hostile file: it is opened, and read where that works.
  int openAndTell(int descriptor) const {
    const auto opened = SqliteCompanyFile::open(path_, options());
    if (const auto* trouble = std::get_if<FileTrouble>(&opened)) {
      const std::string text = trouble->description();
      return ::write(descriptor, text.data(), text.size()) < 0 ? 3 : 0;
    }
    return contentOf(*std::get<File>(opened)) == content_ ? 1 : 2;
  }

  void expectRefusal(const std::string& what, const std::string& message) const {
    const Outcome outcome = openElsewhere();
    EXPECT_TRUE(outcome.ended) << what;
    EXPECT_FALSE(outcome.changed) << what;
    EXPECT_LT(outcome.seconds, 2) << what;
    EXPECT_LT(outcome.megabytes, 256) << what;
    EXPECT_THAT(outcome.message, HasSubstr(message)) << what;
    EXPECT_EQ(outcome.message.empty(), message.empty()) << what << ": " << outcome.message;
    if (inLongRun()) {
      std::cout << what << ": " << outcome.seconds << " s, " << outcome.megabytes << " MB\n";
    }
  }
};

TEST_F(HostileCompanyFile, IsRefusedWhateverWasAddedToItsSchema) {
  struct Case {
    const char* what;
    const char* sql;
    const char* message;
  };
  for (const Case& each : std::vector<Case>{
           {"trigger", "CREATE TRIGGER t AFTER INSERT ON record BEGIN DELETE FROM record; END",
            "does not belong in it"},
           {"view", "CREATE VIEW v AS SELECT * FROM record", "does not belong in it"},
           {"table", "CREATE TABLE t (a)", "does not belong in it"},
           {"index", "CREATE INDEX i ON record (digest)", "does not belong in it"},
           {"partial index", "CREATE INDEX i ON record (id) WHERE abs(id) > 1",
            "does not belong in it"},
           {"virtual table", "CREATE VIRTUAL TABLE f USING fts5(a)", "does not belong in it"},
           {"statistics", "CREATE INDEX i ON record (digest); ANALYZE; DROP INDEX i",
            "does not belong in it"},
           {"generated column",
            "ALTER TABLE record ADD COLUMN g INTEGER GENERATED ALWAYS AS (id * 2) VIRTUAL",
            "does not belong in it"},
           {"column", "ALTER TABLE company ADD COLUMN more TEXT", "does not belong in it"},
           {"renamed", "ALTER TABLE record RENAME TO records", "does not belong in it"},
           {"dropped", "DROP TABLE record", "is missing"},
           {"view for a table",
            "ALTER TABLE record RENAME TO r; CREATE VIEW record AS SELECT * FROM r",
            "does not belong in it"},
           {"300,000 tables",
            "PRAGMA writable_schema = ON; "
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300000) "
            "INSERT INTO sqlite_schema SELECT 'table', 't' || i, 't' || i, 2, "
            "'CREATE TABLE t' || i || ' (a)' FROM n",
            "not described in the expected place"},
           {"table of another root",
            "PRAGMA writable_schema = ON; "
            "UPDATE sqlite_schema SET rootpage = 7 - rootpage WHERE name <> 'company'",
            "is damaged"},
           {"root behind the end",
            "PRAGMA writable_schema = ON; "
            "UPDATE sqlite_schema SET rootpage = 99999999 WHERE name = 'record'",
            "is damaged"},
           {"text that is no statement",
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE TABLE (((' "
            "WHERE name = 'record'",
            "is damaged"},
           {"blob for a text",
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET name = x'00ff' "
            "WHERE name = 'record'",
            "damaged"},
           {"giant statement",
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = "
            "sql || printf('%*c', 100000000, ' ') WHERE name = 'record'",
            "damaged"},
           {"nested expression",
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = "
            "'CREATE TABLE record (id CHECK ' || replace(printf('%*c', 500000, ' '), ' ', '(') "
            "WHERE name = 'record'",
            "damaged"},
       }) {
    restore();
    sql(each.sql);
    expectRefusal(each.what, each.message);
  }
}

TEST_F(HostileCompanyFile, IsRefusedWhateverItsRowsHold) {
  struct Case {
    const char* what;
    std::string sql;
    const char* message;
  };
  const std::string numbers =
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
  const std::string many_tables =
      numbers + "30000) INSERT INTO data_table SELECT i + 2, 't' || i, 1, 0 FROM n; " + numbers +
      "30000) INSERT INTO record SELECT (i + 2) * 65536 + 32767, '{}', 0 FROM n";
  const std::string giant = "CAST(printf('%*c', 100000000, 'x') AS TEXT)";
  for (const Case& each : std::vector<Case>{
           {"blob for a record", "UPDATE record SET fields = CAST(fields AS BLOB) WHERE id % 9 = 1",
            "altered since it was saved"},
           {"number for a record", "UPDATE record SET fields = 42 WHERE id % 9 = 1",
            "altered since it was saved"},
           {"text for a digest", "UPDATE record SET digest = 'none'", "altered since it was saved"},
           {"real for a digest", "UPDATE record SET digest = digest + 0.5",
            "altered since it was saved"},
           {"no value",
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = replace(sql, "
            "' NOT NULL', '') WHERE name = 'record'; PRAGMA writable_schema = RESET; UPDATE record "
            "SET fields = NULL; "
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = "
            "'CREATE TABLE record (\n  id INTEGER PRIMARY KEY,\n  fields TEXT NOT NULL,\n"
            "  digest INTEGER NOT NULL\n)' WHERE name = 'record'",
            "NULL value in record.fields"},
           {"amount", "UPDATE record SET fields = replace(fields, '10000.0000', '10001.0000')",
            "altered since it was saved"},
           {"swapped records",
            "UPDATE record SET id = -1 WHERE id % 65536 = 1; UPDATE record SET id = id - 1 WHERE "
            "id % 65536 = 2; UPDATE record SET id = 65536 + 2 WHERE id = -1",
            "altered since it was saved"},
           {"lost record", "DELETE FROM record WHERE id % 65536 = 3", "records instead of"},
           {"foreign record", "UPDATE record SET id = id + 65536 * 5 WHERE id % 65536 = 3",
            "does not belong to any table"},
           {"negative record", "UPDATE record SET id = -7 WHERE id = 65536 + 3",
            "does not belong to any table"},
           {"text for a count", "UPDATE data_table SET records = 'many'", "instead of"},
           {"no tables", "DELETE FROM data_table", "does not belong to any table"},
           {"nameless table", "UPDATE data_table SET name = ''", "no name of its own"},
           {"table of a huge number",
            "INSERT INTO data_table VALUES (9223372036854775807, 'x', 0, 0)", "no name of its own"},
           {"two companies",
            "PRAGMA ignore_check_constraints = ON; "
            "INSERT INTO company SELECT 2, name, 3, mode, digest FROM company",
            "damaged"},
           {"no company", "DELETE FROM company", "are missing"},
           {"month", "UPDATE company SET first_month = 13", "fiscal year or mode"},
           {"text for a month", "UPDATE company SET first_month = 'May'", "fiscal year or mode"},
           {"mode", "UPDATE company SET mode = 'none'", "fiscal year or mode"},
           {"name", "UPDATE company SET name = 'Other'", "own data"},
           {"giant record", "UPDATE record SET fields = " + giant + " WHERE id % 65536 = 1",
            "more than a company file may hold"},
           {"giant blob", "UPDATE record SET fields = zeroblob(100000000) WHERE id % 65536 = 1",
            "more than a company file may hold"},
           {"giant company name", "UPDATE company SET name = " + giant,
            "more than a company file may hold"},
           {"giant table name", "UPDATE data_table SET name = " + giant,
            "more than a company file may hold"},
           {"large texts", "UPDATE record SET fields = CAST(printf('%*c', 4000000, 'x') AS TEXT)",
            "damaged"},
           {"many wrong records",
            numbers + "1000000) INSERT INTO record SELECT i * 65536 * 8, '{}', 0 FROM n",
            "damaged"},
           {"many tables of one record", many_tables, "damaged"},
       }) {
    restore();
    sql(each.sql);
    expectRefusal(each.what, each.message);
  }
}

TEST_F(HostileCompanyFile, IsRefusedForWhatItsHeaderSays) {
  struct Case {
    const char* what;
    const char* sql;
    const char* message;
  };
  for (const Case& each : std::vector<Case>{
           {"another application", "PRAGMA application_id = 1", "is not a company file"},
           {"no application", "PRAGMA application_id = 0", "is not a company file"},
           {"next version", "PRAGMA user_version = 3", "newer version"},
           {"version without units", "PRAGMA user_version = 1", "says that its format is 1"},
           {"no version", "PRAGMA user_version = 0", "says that its format is 0"},
           {"huge version", "PRAGMA user_version = 2147483647", "newer version"},
           {"negative version", "PRAGMA user_version = -1", "newer version"},
           {"vacuumed", "VACUUM", read_truly},
           {"small pages", "PRAGMA page_size = 512; VACUUM", "not described in the expected place"},
           {"written by another version of the library", "PRAGMA journal_mode = WAL", read_truly},
       }) {
    restore();
    sql(each.sql);
    expectRefusal(each.what, each.message);
  }
}

/// Pages that lead to one another again and again: few bytes, rows without end.
TEST_F(HostileCompanyFile, IsRefusedThoughItsPagesLeadInCircles) {
  const auto big = [](std::string& bytes, std::size_t at, std::uint32_t value, int size) {
    for (int i = size - 1; i >= 0; --i, value >>= 8U) {
      bytes[at + static_cast<std::size_t>(i)] = static_cast<char>(value & 0xFFU);
    }
  };
  /// An inner page of a table whose children are all the same.
  const auto inner = [&](std::string& bytes, std::size_t at, std::size_t page, std::uint32_t child,
                         std::uint32_t children) {
    std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(at),
              bytes.begin() + static_cast<std::ptrdiff_t>(page * page_size), '\0');
    bytes[at] = 5;
    big(bytes, at + 3, children, 2);
    big(bytes, at + 5, static_cast<std::uint32_t>(page_size) - 6 * children, 2);
    big(bytes, at + 8, child, 4);
    const std::size_t begin = (page - 1) * page_size;
    for (std::uint32_t i = 0; i < children; ++i) {
      const std::uint32_t cell = static_cast<std::uint32_t>(page_size) - 6 * (i + 1);
      big(bytes, at + 12 + std::size_t{2} * i, cell, 2);
      big(bytes, begin + cell, child, 4);
      bytes[begin + cell + 5] = static_cast<char>(i % 100);
    }
  };
  const auto pages = static_cast<std::uint32_t>(bytes_.size() / page_size);
  for (const std::uint32_t children : {2U, 500U}) {
    const std::uint32_t levels = children == 2 ? 17 : 3;
    for (const bool in_schema : {false, true}) {
      std::string bytes = bytes_;
      bytes.resize((pages + levels + 1) * page_size);
      // The last page is a leaf, and every page before it leads to the one behind it only.
      const std::size_t leaf = in_schema ? 0 : 3 * page_size;
      bytes.replace((pages + levels) * page_size, page_size, bytes_, leaf, page_size);
      // The first page's own head comes behind that of the file.
      if (in_schema) bytes.replace((pages + levels) * page_size, 14, bytes_, 100, 14);
      for (std::uint32_t i = 0; i < levels; ++i) {
        inner(bytes, (pages + i) * page_size, pages + i + 1, pages + i + 2, children);
      }
      if (in_schema) {
        inner(bytes, 100, 1, pages + 1, children);
      } else {
        inner(bytes, 3 * page_size, 4, pages + 1, children);
      }
      big(bytes, 28, pages + levels + 1, 4);
      restore();
      writeBytes(path_, bytes);
      expectRefusal(std::string(in_schema ? "schema" : "records") + ", " +
                        std::to_string(children) + " children",
                    in_schema ? "not described in the expected place" : "2nd reference");
    }
  }
}

TEST_F(HostileCompanyFile, IsRefusedWhereItIsNoFile) {
  struct Case {
    const char* what;
    std::function<void()> make;
    const char* message;
  };
  const std::string other = directory_.path() + "/other";
  for (const Case& each : std::vector<Case>{
           {"pipe", [&] { ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0); }, "is not a file"},
           {"directory", [&] { std::filesystem::create_directory(path_); }, "is not a file"},
           {"socket",
            [&] {
              const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
              struct sockaddr_un address {};
              address.sun_family = AF_UNIX;
              path_.copy(address.sun_path, sizeof address.sun_path - 1);
              ASSERT_EQ(
                  ::bind(descriptor, reinterpret_cast<struct sockaddr*>(&address), sizeof address),
                  0);
              ::close(descriptor);
            },
            "is not a file"},
           {"link to /dev/zero", [&] { std::filesystem::create_symlink("/dev/zero", path_); },
            "is not a file"},
           {"link to a pipe",
            [&] {
              std::filesystem::create_symlink(other, path_);
              ASSERT_EQ(::mkfifo(other.c_str(), 0600), 0);
            },
            "is not a file"},
           {"link to itself", [&] { std::filesystem::create_symlink(path_, path_); },
            "cannot be read: Too many levels of symbolic links"},
           {"link to nowhere", [&] { std::filesystem::create_symlink(other + "/none", path_); },
            "does not exist"},
           {"empty file", [&] { writeBytes(path_, ""); }, "is not a company file"},
           {"text", [&] { writeBytes(path_, "SQLite format 3"); }, "is not a company file"},
           {"header alone", [&] { writeBytes(path_, bytes_.substr(0, 100)); }, "damaged"},
           {"first page alone", [&] { writeBytes(path_, bytes_.substr(0, page_size)); }, "damaged"},
           {"100 GB of nothing behind it",
            [&] {
              writeBytes(path_, bytes_);
              std::filesystem::resize_file(path_, 100'000'000'000);
            },
            read_truly},
           {"16 TB of pages that nothing uses",
            [&] {
              std::string bytes = bytes_;
              bytes[28] = '\x7F';
              writeBytes(path_, bytes);
              std::filesystem::resize_file(path_, 0x7F000000ULL * page_size);
            },
            "damaged"},
       }) {
    restore();
    std::filesystem::remove(path_);
    std::filesystem::remove(other);
    each.make();
    expectRefusal(each.what, each.message);
  }
}

TEST_F(HostileCompanyFile, IsReadTrulyOrRefusedWhateverLiesBesideIt) {
  struct Case {
    const char* what;
    const char* beside;
    std::function<void(const std::string&)> make;
    const char* message;
  };
  const std::string outside = directory_.path() + "/outside";
  const auto pipe = [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); };
  const auto folder = [](const std::string& path) { std::filesystem::create_directory(path); };
  const auto link = [&](const std::string& path) {
    writeBytes(outside, "precious");
    std::filesystem::create_symlink(outside, path);
  };
  const auto zeros = [](const std::string& path) {
    std::filesystem::create_symlink("/dev/zero", path);
  };
  const auto noise = [](const std::string& path) { writeBytes(path, std::string(100'000, 'x')); };
  const auto giant = [](const std::string& path) {
    writeBytes(path, "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7");
    std::filesystem::resize_file(path, 100'000'000'000);
  };
  for (const Case& each : std::vector<Case>{
           {"journal that is a pipe", "-journal", pipe, "beside it"},
           {"journal that is a directory", "-journal", folder, "beside it"},
           {"journal that leads elsewhere", "-journal", link, "beside it"},
           {"journal that leads to /dev/zero", "-journal", zeros, "beside it"},
           {"journal of noise", "-journal", noise, read_truly},
           {"endless journal", "-journal", giant, read_truly},
           {"log that is a pipe", "-wal", pipe, "beside it"},
           {"log that is a directory", "-wal", folder, "beside it"},
           {"log of noise", "-wal", noise, read_truly},
       }) {
    restore();
    each.make(path_ + each.beside);
    expectRefusal(each.what, each.message);
    if (std::filesystem::exists(outside)) {
      EXPECT_EQ(bytesOf(outside), "precious");
    }
    std::filesystem::remove(outside);
  }
}

TEST_F(HostileCompanyFile, TakesNothingThatItCouldNotReadAgain) {
  const File file = openOf(SqliteCompanyFile::open(path_, options()));
  const auto keep = [&](std::size_t size) {
    const auto record = file->OpenTable("ZEM:DepCalc")->Item(1);
    record->Fields().SetValue("AName", StoredValue::text(std::string(size, 'x')));
    record->Modified(true);
    record->Commit();
  };
  keep(4'190'000);
  EXPECT_THROW(keep(4'194'304), FileTrouble);
  EXPECT_THAT(file->takeTrouble()->description(), HasSubstr("cannot hold text of more than"));
  for (int i = 3; i <= 16; ++i) file->OpenTable("table " + std::to_string(i));
  EXPECT_THROW(file->OpenTable("table 17"), RuntimeError);
  const TableContent shown = contentOf(*file);
  EXPECT_EQ(shown.at(1).at("aname").asText().size(), 4'190'000U);
  file->close();
  EXPECT_TRUE(reread() == shown);
}

}  // namespace
}  // namespace depcalc
