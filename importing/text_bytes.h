// A text in memory as a source of bytes.
#pragma once

#include <algorithm>
#include <string_view>

#include "importing/byte_source.h"

namespace depcalc {

/// The text must outlive it.
class TextBytes final : public ByteSource {
 public:
  explicit TextBytes(std::string_view text) : rest_(text) {}

  std::optional<std::size_t> read(std::span<char> buffer) override {
    const std::size_t count = std::min(rest_.size(), buffer.size());
    std::copy_n(rest_.begin(), count, buffer.begin());
    rest_.remove_prefix(count);
    return count;
  }

  /// Bytes that nobody has read yet.
  [[nodiscard]] std::size_t left() const { return rest_.size(); }

 private:
  std::string_view rest_;
};

}  // namespace depcalc
