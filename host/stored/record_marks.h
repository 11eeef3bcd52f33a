// What stands around a value in a record's text.
#pragma once

#include <cstddef>

namespace depcalc {

inline constexpr char date_begin[] = "{\"date\":\"";
inline constexpr char date_end[] = "\"}";
inline constexpr std::size_t date_size = 10;  // yyyy-mm-dd

}  // namespace depcalc
