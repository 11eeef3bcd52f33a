// That the servers of tests are what the tests take them for.
#include "tests/support/postgres_server.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace depcalc::testing_support {
namespace {

TEST(PostgresServer, IsItsOwnAndGoneAfterwards) {
  std::string directory;
  pid_t process = 0;
  {
    PostgresServer server({.settings = {"max_connections=17"}});
    PostgresServer other;
    directory = server.directory();
    process = server.process();
    EXPECT_NE(other.directory(), directory);
    EXPECT_EQ("17||off\n", server.sql("select current_setting('max_connections'),"
                                      "current_setting('listen_addresses'),"
                                      "current_setting('fsync')"));
    EXPECT_EQ(0, ::kill(process, 0));
  }
  EXPECT_FALSE(std::filesystem::exists(directory));
  EXPECT_NE(0, ::kill(process, 0));
}

TEST(PostgresServer, KeepsWhatWasCommittedThroughEveryEnd) {
  PostgresServer server;
  server.sql("create table t (n int)");
  int rows = 0;
  for (const char* mode : {"smart", "fast", "immediate", "kill", "quit"}) {
    SCOPED_TRACE(mode);
    server.sql("insert into t values (1)");
    ++rows;
    if (mode == std::string("kill")) {
      server.kill();
    } else if (mode == std::string("quit")) {
      ::kill(server.process(), SIGQUIT);
      server.stop("immediate");
    } else {
      server.stop(mode);
    }
    EXPECT_THROW(server.sql("select 1"), std::runtime_error);
    server.start();
    EXPECT_EQ(std::to_string(rows) + "\n", server.sql("select count(*) from t"));
  }
}

TEST(PostgresServer, WritesThroughWhereThatIsAskedFor) {
  const PostgresServer server({.durable = true});
  EXPECT_EQ("on|on\n", server.sql("select current_setting('fsync'),"
                                  "current_setting('full_page_writes')"));
}

TEST(PostgresServer, HasReplicasThatCanTakeOver) {
  PostgresServer primary;
  primary.sql("create table t (n int); insert into t values (7)");
  PostgresServer replica({.replica_of = primary.directory()});
  EXPECT_EQ("7\n", replica.sql("select n from t"));
  EXPECT_THROW(replica.sql("insert into t values (8)"), std::runtime_error);
  primary.kill();
  replica.promote();
  EXPECT_EQ("8\n", replica.sql("insert into t values (8) returning n"));
}

TEST(PostgresServer, SaysWhyItDoesNotStart) {
  EXPECT_THROW(PostgresServer({.settings = {"shared_buffers=nonsense"}}), std::runtime_error);
}

}  // namespace
}  // namespace depcalc::testing_support
