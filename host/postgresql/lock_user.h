// Who has a company on a server open.
#pragma once

#include <cstdint>
#include <string>

#include "host/postgresql/connection.h"

namespace depcalc {

/// The number of a company's lock.
std::int64_t lockKey(const ServerAddress& company);

/// Whether the session with the server's process `pid` has the lock `key`.
bool usesLock(Connection& connection, std::int64_t key, int pid);

/// Who has the lock, as " by anna on OFFICE-3 (depcalc, since 2026-03-31 09:14)"; "" where that
/// cannot be told. `company` is 0 where the company is only being made.
std::string lockUser(Connection& connection, std::int64_t key, std::int64_t company);

/// The user as this computer knows him, and the computer.
std::string loginName();
std::string machineName();

}  // namespace depcalc
