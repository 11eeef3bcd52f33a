// What a server says, in sentences for its users.
#pragma once

#include <string>
#include <string_view>

#include "host/postgresql/connection.h"

namespace depcalc {

/// Whether a session ends with this error (SQLSTATE), whatever it was asked to do.
bool endsSession(std::string_view code);

ServerTrouble cannotConnect(const std::string& address, std::string_view why);
ServerTrouble passwordWanted(const std::string& address);
ServerTrouble connectionLost(const std::string& address, std::string_view why);
/// `code` is the SQLSTATE of what was refused, `why` the server's own sentence.
ServerTrouble refusedByServer(const std::string& address, const std::string& code,
                              std::string_view why);

}  // namespace depcalc
