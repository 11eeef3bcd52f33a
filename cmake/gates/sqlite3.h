#pragma GCC system_header
#ifndef DEPCALC_LINKS_SQLITE
#error "This room does not link SQLite."
#endif
#include_next <sqlite3.h>
