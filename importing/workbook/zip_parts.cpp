#include "importing/workbook/zip_parts.h"

#include <minizip/unzip.h>

#include <array>

#include "importing/import_file.h"

namespace depcalc {

ZipParts::ZipParts(const std::string& path) : archive_(::unzOpen64(path.c_str())) {}

ZipParts::~ZipParts() {
  if (isOpen()) ::unzClose(archive_);
}

/// The size that the archive states is not to be trusted: what comes is counted.
std::optional<std::string> ZipParts::part(const std::string& name) const {
  constexpr int in_any_case = 2;
  if (!isOpen() || ::unzLocateFile(archive_, name.c_str(), in_any_case) != UNZ_OK ||
      ::unzOpenCurrentFile(archive_) != UNZ_OK) {
    return std::nullopt;
  }
  std::string content;
  std::array<char, 65'536> piece;
  int count = 0;
  do {
    count = ::unzReadCurrentFile(archive_, piece.data(), static_cast<unsigned>(piece.size()));
    if (count > 0) content.append(piece.data(), static_cast<std::size_t>(count));
  } while (count > 0 && content.size() <= most_import_bytes);
  // Closing checks the part's sum.
  const bool whole = ::unzCloseCurrentFile(archive_) == UNZ_OK;
  if (count != 0 || !whole) return std::nullopt;
  return content;
}

}  // namespace depcalc
