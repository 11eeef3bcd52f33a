#pragma GCC system_header
#ifndef DEPCALC_LINKS_CLI11
#error "This room does not link CLI11, or not for this source (cli/CMakeLists.txt)."
#endif
#include_next <CLI/CLI.hpp>
