// A text in memory as a source of bytes.
#pragma once

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

#include "importing/byte_source.h"

namespace depcalc {

/// Hands out `text` in pieces of at most `piece` bytes; with `fails`, reading fails behind it.
class TextSource final : public ByteSource {
 public:
  explicit TextSource(std::string_view text,
                      std::size_t piece = std::numeric_limits<std::size_t>::max(),
                      bool fails = false)
      : rest_(text), piece_(piece), fails_(fails) {}

  std::optional<std::size_t> read(std::span<char> buffer) override {
    if (rest_.empty() && fails_) return std::nullopt;
    const std::size_t count = std::min({rest_.size(), piece_, buffer.size()});
    std::copy_n(rest_.begin(), count, buffer.begin());
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
  std::size_t piece_;
  bool fails_;
};

}  // namespace depcalc
