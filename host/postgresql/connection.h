// A connection to a server, and statements with parameters.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/file_trouble.h"
#include "host/postgresql/libpq.h"
#include "host/postgresql/server_address.h"

namespace depcalc {

/// What a server refused, with its code for that (SQLSTATE); the code of a connection that was lost
/// is "".
class ServerTrouble : public FileTrouble {
 public:
  ServerTrouble(Kind kind, std::string message, std::string code)
      : FileTrouble(kind, std::move(message)), code_(std::move(code)) {}
  [[nodiscard]] const std::string& code() const { return code_; }

 private:
  std::string code_;
};

/// The values of a statement's parameters $1, $2 and so on. They go beside the statement, never
/// into it.
class Parameters {
 public:
  Parameters& text(std::string_view value);
  Parameters& integer(std::int64_t value);
  Parameters& integers(const std::vector<std::int64_t>& values);
  Parameters& texts(const std::vector<std::string_view>& values);
  /// Where there is none, NULL.
  Parameters& texts(const std::vector<std::optional<std::string>>& values);

 private:
  friend class Connection;
  Parameters& add(unsigned type, std::string bytes);

  std::vector<unsigned> types_;
  std::vector<std::string> bytes_;
};

/// The rows of an answer.
class Rows {
 public:
  Rows(const Libpq& libpq, PGresult* result) : libpq_(&libpq), result_(result, {libpq.clear}) {}

  [[nodiscard]] int count() const { return libpq_->rows(result_.get()); }
  [[nodiscard]] bool isNull(int row, int column) const;
  [[nodiscard]] std::string_view text(int row, int column) const;
  [[nodiscard]] std::int64_t integer(int row, int column) const;
  [[nodiscard]] bool isTrue(int row, int column) const { return text(row, column) == "t"; }

 private:
  struct Clear {
    decltype(Libpq::clear) clear;
    void operator()(PGresult* result) const { clear(result); }
  };
  const Libpq* libpq_;
  std::unique_ptr<PGresult, Clear> result_;
};

/// A session at a server. What goes wrong is thrown as a ServerTrouble that names the address, but
/// want of memory as std::bad_alloc.
class Connection {
 public:
  /// `libpq` outlives the connection. `program` is what the server's administrators see.
  Connection(const Libpq& libpq, const ServerAddress& address, const std::string& program);

  /// One statement.
  Rows run(const char* sql, const Parameters& parameters = {});
  /// The same where nobody needs to know whether it worked.
  void attempt(const char* sql) noexcept;
  /// Whether the server can no longer be asked by this connection.
  [[nodiscard]] bool lost() const { return lost_; }
  [[nodiscard]] int pid() const { return libpq_->backendPid(handle_.get()); }

 private:
  struct Finish {
    decltype(Libpq::finish) finish;
    void operator()(PGconn* handle) const { finish(handle); }
  };

  [[noreturn]] void failConnecting() const;
  [[noreturn]] void fail(const PGresult* result);

  const Libpq* libpq_;
  std::string shown_;
  std::unique_ptr<PGconn, Finish> handle_;
  bool lost_ = false;
};

}  // namespace depcalc
