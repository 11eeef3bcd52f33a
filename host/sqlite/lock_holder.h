// Who holds a company file.
#pragma once

#include <string>

namespace depcalc {

/// Who holds a lock on the file, as " by NAME (process 123)"; "" when that cannot be told.
std::string lockHolder(const std::string& path);

/// Whether a descriptor of this process has a lock of its own on the file. Opens nothing that
/// would have to be closed again.
bool isLockedHere(const std::string& path);

}  // namespace depcalc
