// What a file is that somebody wants to import.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// A list of a full register's assets takes a tenth of this.
inline constexpr std::size_t most_import_bytes = 268'435'456;

/// Whether the bytes are those of an archive, as workbooks of today are.
bool looksLikeWorkbook(std::string_view bytes);

/// Why a file with these bytes holds no list of assets, and what to do; "" where it may hold one.
std::string whyNotImportable(std::string_view bytes);

}  // namespace depcalc
