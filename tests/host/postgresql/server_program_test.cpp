// The command on a server: what users of several machines do by it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/cli/program.h"
#include "tests/host/postgresql/test_server.h"

namespace depcalc {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using namespace testing_support;

/// What a command of a shell prints, errors among it. "$DEPCALC" is the program.
std::string printed(const std::string& command) {
  ::setenv("DEPCALC", DEPCALC_PROGRAM, 1);
  std::string all;
  FILE* const pipe = ::popen(("{ " + command + "; } 2>&1").c_str(), "r");
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) all += static_cast<char>(c);
  return all + "status " + std::to_string(WEXITSTATUS(::pclose(pipe))) + '\n';
}

/// Each in its quotes, behind the program's name.
std::string depcalc(const Arguments& arguments) {
  std::string command = "\"$DEPCALC\"";
  for (const std::string& argument : arguments) command += " '" + argument + "'";
  return printed(command);
}

class ServerProgram : public Program {
 protected:
  const std::string address_ = newAddress();
};

TEST_F(ServerProgram, DoesOnAServerWhatItDoesOnAFile) {
  writeAssets(many_, 40);
  const auto ran = [&](const std::string& place) {
    const Arguments commands[] = {{"new", place, "--name", "Nine Oaks", "--first-month", "4"},
                                  {"import", place, many_, "--today", "2024-06-01"},
                                  {"dispose", place, "2", "--date", "2024-05-31", "--proceeds",
                                   "100", "--today", "2024-06-01"},
                                  {"delete", place, "1", "--today", "2024-06-01"},
                                  {"units", place, "3", "2024=5", "--today", "2024-06-01"},
                                  {"recalculate", place, "--today", "2024-06-01"},
                                  {"list", place},
                                  {"list", "--format", "csv", place},
                                  {"register", place, "--today", "2024-06-01"},
                                  {"report", "rollforward", place, "--today", "2024-06-01"},
                                  {"check", place},
                                  {"dump", place}};
    std::string all;
    for (const Arguments& command : commands) all += depcalc(command);
    for (std::size_t at = 0; (at = all.find(place, at)) != std::string::npos;) {
      all.replace(at, place.size(), "PLACE");
    }
    return all;
  };
  const std::string there = ran(address_);
  EXPECT_EQ(there, ran(file_));
  EXPECT_THAT(there, HasSubstr("\"A39\""));
}

TEST_F(ServerProgram, CopiesBetweenFilesAndServers) {
  make(file_, 30);
  const std::string back = directory_.path() + "/back.company";
  EXPECT_EQ(depcalc({"copy", file_, address_}), "status 0\n");
  EXPECT_EQ(depcalc({"copy", address_, back}), "status 0\n");
  EXPECT_EQ(depcalc({"dump", back}), depcalc({"dump", file_}));
  EXPECT_EQ(depcalc({"dump", address_}), depcalc({"dump", file_}));
  EXPECT_EQ(openOf(PostgresCompanyFile::open(address_, serverOptions()))->info(),
            opened(file_)->info());
  EXPECT_THAT(depcalc({"copy", file_, address_}),
              AllOf(HasSubstr("already exists"), HasSubstr("status 3")));
  EXPECT_THAT(depcalc({"copy", address_, file_}),
              AllOf(HasSubstr("already exists"), HasSubstr("status 3")));
}

TEST_F(ServerProgram, IsRefusedWhileSomebodyHasTheCompany) {
  make(file_, 3);
  ASSERT_EQ(depcalc({"copy", file_, address_}), "status 0\n");
  const ServerFile mine = openOf(PostgresCompanyFile::open(address_, serverOptions()));
  EXPECT_THAT(depcalc({"list", address_}),
              AllOf(HasSubstr(address_ + " is in use by "), HasSubstr("status 4")));
  EXPECT_THAT(depcalc({"server", "list", testServer().address()}),
              HasSubstr(address_ + "  in use by "));
}

TEST_F(ServerProgram, MakesRoomListsAndGivesRights) {
  testServer().sql("CREATE DATABASE books; CREATE ROLE anna LOGIN");
  const std::string server = testServer().address("books");
  EXPECT_EQ(depcalc({"server", "list", server}),
            "depcalc: " + server +
                " has no place for companies yet. Whoever looks after the server makes it with "
                "`depcalc server init`.\nstatus 3\n");
  EXPECT_THAT(depcalc({"server", "init", server}), HasSubstr("status 0"));
  EXPECT_THAT(depcalc({"server", "init", server}), HasSubstr("already"));
  EXPECT_EQ(depcalc({"new", server + "#Nine Oaks"}), "status 0\n");
  EXPECT_EQ(depcalc({"server", "list", server}), server + "#Nine%20Oaks\nstatus 0\n");
  const std::string annas = testServer().address("books", "anna") + "#Nine%20Oaks";
  EXPECT_THAT(depcalc({"list", annas}), HasSubstr("permission denied"));
  EXPECT_EQ(depcalc({"server", "grant", server + "#Nine%20Oaks", "anna"}), "status 0\n");
  EXPECT_THAT(depcalc({"list", annas}), HasSubstr("status 0"));
  writeAssets(one_, 1);
  EXPECT_THAT(depcalc({"import", annas, one_}), HasSubstr("can only be read with your rights"));
  EXPECT_EQ(depcalc({"server", "grant", server + "#Nine%20Oaks", "anna", "--edit"}), "status 0\n");
  EXPECT_THAT(depcalc({"import", annas, one_}), HasSubstr("Imported 1 asset."));
  EXPECT_EQ(depcalc({"server", "revoke", server + "#Nine%20Oaks", "anna"}), "status 0\n");
  EXPECT_THAT(depcalc({"list", annas}), HasSubstr("no right to read it"));
  EXPECT_THAT(depcalc({"server", "grant", server}), HasSubstr("status 2"));
  EXPECT_THAT(depcalc({"server", "list", server, "anna"}), HasSubstr("status 2"));
  EXPECT_THAT(depcalc({"server", "sing", server}), HasSubstr("status 2"));
}

TEST_F(ServerProgram, LoadsItsLibraryForAServerOnly) {
  make(file_, 1);
  ASSERT_EQ(depcalc({"new", address_}), "status 0\n");
  ::setenv("LD_DEBUG", "files", 1);
  const std::string of_file = depcalc({"list", file_});
  const std::string of_server = depcalc({"list", address_});
  const std::string refused = depcalc({"list", "postgresql://a:b@c/d#e"});
  ::unsetenv("LD_DEBUG");
  EXPECT_THAT(of_file, AllOf(HasSubstr("libsqlite3"), Not(HasSubstr("libpq"))));
  EXPECT_THAT(refused, AllOf(HasSubstr("~/.pgpass"), Not(HasSubstr("libpq"))));
  EXPECT_THAT(of_server, HasSubstr("libpq.so.5"));
}

/// Passwords as libpq has them: nothing of ours repeats one.
TEST(ServerPasswords, AreNeverSeen) {
  PostgresServer server;
  initServer(server.address());
  server.sql("CREATE ROLE berta LOGIN PASSWORD 'geheim-4711'");
  giveRight(server.address(), "berta", ServerRight::edit);
  const std::string hba = server.directory() + "/data/pg_hba.conf";
  std::ofstream(hba) << "local all postgres trust\nlocal all all scram-sha-256\n";
  server.set("log_connections", "on");
  const std::string address = server.address("postgres", "berta") + "#Acme";
  const std::string secret = server.directory() + "/passwords";
  ::setenv("PGPASSFILE", secret.c_str(), 1);
  EXPECT_THAT(depcalc({"new", address}),
              HasSubstr("wants a password. Put it into the password file"));
  const auto keep = [&](const std::string& password) {
    std::ofstream(secret) << "*:*:*:berta:" << password << '\n';
    ::chmod(secret.c_str(), 0600);
  };
  keep("wrong-0815");
  const std::string wrong = depcalc({"new", address});
  EXPECT_THAT(wrong, AllOf(HasSubstr("password authentication failed"), Not(HasSubstr("0815"))));
  keep("geheim-4711");
  EXPECT_EQ(depcalc({"new", address}), "status 0\n");
  const ServerFile file = openOf(PostgresCompanyFile::open(address, serverOptions()));
  EXPECT_THAT(file->path(), Not(HasSubstr("4711")));
  const std::string processes =
      printed("ps -A -o args; cat /proc/*/cmdline 2>/dev/null | tr '\\0' ' '");
  EXPECT_THAT(processes, AllOf(HasSubstr("postgres"), Not(HasSubstr("geheim-4711"))));
  EXPECT_THAT(depcalc({"list", address}), AllOf(HasSubstr("in use"), Not(HasSubstr("4711"))));
  EXPECT_EQ(server.sql("SELECT count(*) FROM pg_stat_activity WHERE query LIKE '%4711%'"
                       " AND pid <> pg_backend_pid()"),
            "0\n");
  std::string log = bytesOf(server.directory() + "/log");
  log.erase(0, log.find("connection authenticated"));
  EXPECT_THAT(log, Not(HasSubstr("geheim-4711")));
  ::unsetenv("PGPASSFILE");
}

}  // namespace
}  // namespace depcalc
