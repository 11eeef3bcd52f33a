// A file that appears whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// Writes `content` to the file at `path`, replacing what is there in one step; a device or a pipe
/// is written to as it is. Answers why that failed, in the system's words, with nothing changed;
/// empty when it did not fail.
[[nodiscard]] std::string writeWholeFile(const std::string& path, std::string_view content);

/// Whether both paths lead to the same file.
[[nodiscard]] bool isSameFile(const std::string& a, const std::string& b);

}  // namespace depcalc
