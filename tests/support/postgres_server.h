// A PostgreSQL server for one test.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace depcalc::testing_support {

/// What a test wants of its server.
struct PostgresOptions {
  bool durable = false;                 ///< writes through to the disk
  std::string replica_of{};             ///< `directory()` of the server to copy and follow
  std::vector<std::string> settings{};  ///< "max_connections=50"
};

/// A server in a new directory, on a Unix socket there and no network; it trusts the user postgres,
/// its superuser. Stopped, with all its files gone, at the end of its life and when the test is
/// killed. Whatever fails throws std::runtime_error.
class PostgresServer {
 public:
  explicit PostgresServer(const PostgresOptions& options = {});
  ~PostgresServer();
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  /// Where its socket is, its data (data/) and what it has to say (log).
  [[nodiscard]] const std::string& directory() const { return directory_; }

  /// "host=… user=postgres dbname=postgres", as libpq reads it.
  [[nodiscard]] std::string connection(const std::string& database = "postgres",
                                       const std::string& user = "postgres") const;
  /// The same as an address: "postgresql://postgres@%2F…/postgres".
  [[nodiscard]] std::string address(const std::string& database = "postgres",
                                    const std::string& user = "postgres") const;

  /// What psql prints of `commands`, without alignment and headings: "1|two\n".
  std::string sql(const std::string& commands, const std::string& database = "postgres") const;

  /// "smart" waits for clients, "fast" ends their sessions, "immediate" crashes.
  void stop(const std::string& mode = "fast") { tell("stop " + mode); }
  void start() { tell("start"); }
  /// Every process ends at once, as in a power failure.
  void kill() { tell("kill"); }
  /// Makes a replica a server of its own.
  void promote() { tell("promote"); }
  /// Writes a setting, which the server then reads.
  void set(const std::string& name, const std::string& value) { tell("set " + name + " " + value); }

  /// The server's first process. Tests that cannot wait signal it themselves: SIGQUIT is
  /// `stop("immediate")`, which is to be called all the same before `start()`.
  [[nodiscard]] pid_t process() const;
  [[nodiscard]] std::string log() const;

 private:
  void tell(const std::string& command);
  std::string answer();
  void end();

  pid_t keeper_ = -1;
  int to_ = -1;
  int from_ = -1;
  std::string directory_;
};

}  // namespace depcalc::testing_support
