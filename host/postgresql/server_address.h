// Which company on which server an address means.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// Whether `text` means a company on a server, or a server, rather than a file.
bool isServerAddress(std::string_view text);

/// The parts that most addresses of servers have; "" where one has none of them.
struct ServerParts {
  std::string user = {};
  std::string host = {};  ///< a name, a number, or a directory of sockets
  std::string port = {};
  std::string database = {};
};

/// postgresql://[user@]host[:port]/database#Company%20Name. What stands before the company is for
/// libpq, with all that it knows (several hosts, a directory of sockets as %2Frun%2Fpostgresql,
/// ?sslmode=verify-full, ?service=office), but for passwords: an address stands in the list of
/// processes, in titles and in messages.
struct ServerAddress {
  std::string server;   ///< before the company
  std::string company;  ///< the name that it is filed under; "" where the address has none
  std::string text;     ///< all of it, to be shown and to be used again

  /// Throws a FileTrouble that never repeats what may be a password.
  static ServerAddress of(std::string_view text);
  /// The same with a company. Throws a FileTrouble where there is none.
  static ServerAddress ofCompany(std::string_view text);
  /// That of a company on the same server.
  [[nodiscard]] ServerAddress withCompany(std::string_view name) const;
  /// That of a server without a company, out of what its user calls its parts.
  static ServerAddress ofParts(const ServerParts& parts);
  /// What most people know of it. Of several hosts it is the list, and of options none.
  [[nodiscard]] ServerParts parts() const;
};

}  // namespace depcalc
