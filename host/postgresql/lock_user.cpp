#include "host/postgresql/lock_user.h"

#include <pwd.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <string_view>

#include "host/stored/digest.h"

namespace depcalc {
namespace {

/// So that no other kind of lock by a digest comes to the same numbers.
constexpr std::uint64_t lock_seed = 0x4443'6C6B;

/// The server's processes whose sessions have the advisory lock $1.
constexpr std::string_view lock_users =
    "(SELECT l.pid FROM pg_locks AS l WHERE l.locktype = 'advisory' AND l.granted"
    " AND l.objsubid = 1"
    " AND l.database = (SELECT oid FROM pg_database WHERE datname = current_database())"
    " AND (l.classid::bigint << 32 | l.objid::bigint) = $1)";

std::string withUsers(std::string_view sql) { return std::string(sql).append(lock_users); }

/// As the clock of this computer shows it.
std::string timeText(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  ::localtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

}  // namespace

std::int64_t lockKey(const ServerAddress& company) {
  return static_cast<std::int64_t>(digestOf(company.company, lock_seed));
}

bool usesLock(Connection& connection, std::int64_t key, int pid) {
  return connection.run(withUsers("SELECT $2 IN ").c_str(), Parameters().integer(key).integer(pid))
      .isTrue(0, 0);
}

std::string lockUser(Connection& connection, std::int64_t key, std::int64_t company) {
  const Rows noted = connection.run(
      withUsers("SELECT u.login, u.machine, u.program, extract(epoch FROM u.since)::bigint"
                " FROM depcalc.company_use AS u WHERE u.company_id = $2 AND u.pid IN ")
          .c_str(),
      Parameters().integer(key).integer(company));
  const auto text = [](const Rows& rows, int column) { return std::string(rows.text(0, column)); };
  if (noted.count() > 0) {
    return " by " + text(noted, 0) + " on " + text(noted, 1) + " (" + text(noted, 2) + ", since " +
           timeText(noted.integer(0, 3)) + ")";
  }
  // Who only reads leaves no note.
  const Rows seen = connection.run(
      withUsers("SELECT a.usename, a.application_name, extract(epoch FROM a.backend_start)::bigint"
                " FROM pg_stat_activity AS a WHERE a.pid IN ")
          .c_str(),
      Parameters().integer(key));
  if (seen.count() == 0 || seen.isNull(0, 0)) return "";
  const std::string since = seen.isNull(0, 2) ? "" : ", since " + timeText(seen.integer(0, 2));
  return " by " + text(seen, 0) + " (" + text(seen, 1) + since + ")";
}

std::string loginName() {
  std::array<char, 4'096> space{};
  struct passwd entry {};
  struct passwd* found = nullptr;
  ::getpwuid_r(::geteuid(), &entry, space.data(), space.size(), &found);
  return found != nullptr ? found->pw_name : "user " + std::to_string(::geteuid());
}

std::string machineName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "another computer";
}

}  // namespace depcalc
