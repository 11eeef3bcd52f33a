#pragma GCC system_header
#ifndef DEPCALC_LINKS_MINIZIP
#error "This room does not link libminizip."
#endif
#include_next <minizip/unzip.h>
