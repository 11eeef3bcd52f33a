// Where a reader gets its bytes from.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace depcalc {

class ByteSource {
 public:
  virtual ~ByteSource() = default;

  /// Fills `buffer` from its front and says how many bytes came: at least one, or 0 at the end.
  /// Nothing when reading failed; whatever came before may then be cut off anywhere.
  virtual std::optional<std::size_t> read(std::span<char> buffer) = 0;
};

}  // namespace depcalc
