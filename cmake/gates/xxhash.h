#pragma GCC system_header
#ifndef DEPCALC_LINKS_XXHASH
#error "This room does not link xxHash."
#endif
#include_next <xxhash.h>
