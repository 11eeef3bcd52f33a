// Comes before everything in sources that know Windows: its headers turn names of the calculator's
// own into others by macros, in some sources and not in others.
#include <windows.h>

#undef MessageBox
