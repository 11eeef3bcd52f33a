#pragma GCC system_header
#ifndef DEPCALC_LINKS_EXPAT
#error "This room does not link libexpat."
#endif
#include_next <expat.h>
