// Which file a path means, and a first look at it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/file_trouble.h"

namespace depcalc {

/// Marks a SQLite file as a company file: the letters "DCcf".
inline constexpr std::int64_t company_application_id = 0x44436366;
/// The newest form of company files that this program reads.
inline constexpr std::int64_t company_format = 2;

/// `path` as an absolute path without symbolic links, of a regular file. Throws a FileTrouble.
std::string resolvedCompanyPath(const std::string& path);

/// The same for a file to be made: its directory exists, the file does not.
std::string resolvedNewPath(const std::string& path);

/// Whether a file that begins so is a company file, whatever form it has.
bool beginsLikeCompanyFile(std::string_view beginning);

/// Throws a FileTrouble unless the file's first bytes are those of a company file of a form up to
/// `newest`. Takes no lock and, done by SQLite's own means, drops none that this process has on the
/// file.
void requireCompanyHeader(const std::string& path, const std::string& vfs,
                          std::int64_t newest = company_format);

/// Throws a FileTrouble when what bears the name of the file's journal is no file. Opening a pipe
/// there would wait for ever.
void requirePlainNeighbours(const std::string& path);

/// Throws a FileTrouble unless files can be made beside `path`, as saving needs.
void requireWritableDirectory(const std::string& path);

}  // namespace depcalc
