// What is done at a server beside working on a company: making room for companies, listing them,
// giving rights.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/file_trouble.h"

namespace depcalc {

/// Makes the schema in which a server keeps companies, or brings it up to date. Whether there was
/// anything to do. This and what follows throw FileTrouble.
bool initServer(const std::string& address);

/// A company of a server.
struct ServerCompany {
  std::string address;  ///< to open it by
  std::string name;     ///< that it is filed under
  std::string in_use;   ///< by whom, as " by anna on OFFICE-3 (…)"; "" where it is free
};

/// Those that the user may see, by name.
std::vector<ServerCompany> companiesOf(const std::string& address);

enum class ServerRight { none, read, edit };

/// Gives `role` a right to the address's company, or to all companies where the address names none,
/// instead of the one it had to it. The role exists already.
void giveRight(const std::string& address, const std::string& role, ServerRight right);

}  // namespace depcalc
