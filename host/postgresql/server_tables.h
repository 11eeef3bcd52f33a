// The tables and views of companies on a server.
#pragma once

#include <array>

namespace depcalc {

/// Each brings the schema from one form to the next. What is here was applied somewhere: never
/// change one, add another.
extern const std::array<const char*, 1> server_migrations;

}  // namespace depcalc
