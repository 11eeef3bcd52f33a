#pragma GCC system_header
#ifndef DEPCALC_LINKS_XLSXWRITER
#error "This room does not link libxlsxwriter."
#endif
#include_next <xlsxwriter.h>
