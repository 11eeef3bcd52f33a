// What stands around a value in a record's text.
#pragma once

#include <cstddef>
#include <string_view>

namespace depcalc {

inline constexpr std::string_view date_begin = "{\"date\":\"";
inline constexpr std::string_view date_end = "\"}";
inline constexpr std::size_t date_size = 10;  // yyyy-mm-dd

}  // namespace depcalc
