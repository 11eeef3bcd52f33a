#pragma GCC system_header
#ifndef DEPCALC_LINKS_CLI11
#error "This room does not link CLI11."
#endif
#include_next <CLI/CLI.hpp>
