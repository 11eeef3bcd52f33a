// What the process holds.
#pragma once

#include <cstddef>
#include <iosfwd>

namespace depcalc::windows {

/// Counts of the whole process, whichever library or system component it is that holds them.
struct ProcessUse {
  std::size_t handles;
  std::size_t gdi_objects;
  std::size_t windows;
  std::size_t heap_bytes;  ///< allocated from any heap and not freed

  bool operator==(const ProcessUse&) const = default;
};
ProcessUse processUse();

std::ostream& operator<<(std::ostream& stream, const ProcessUse& use);

}  // namespace depcalc::windows
