// Numbers and texts one after another, as the history is kept.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {

class ByteWriter {
 public:
  /// Seven bits a byte, the lowest first; the last byte is below 128.
  ByteWriter& number(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) bytes_ += static_cast<char>((value & 0x7F) | 0x80);
    bytes_ += static_cast<char>(value);
    return *this;
  }
  ByteWriter& text(std::string_view text) {
    number(text.size());
    bytes_ += text;
    return *this;
  }
  [[nodiscard]] std::string take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

/// Reads what a ByteWriter wrote; anything else is error 13, sooner or later.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  std::uint64_t number() {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += 7) {
      const auto byte = static_cast<unsigned char>(take(1).front());
      value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
      if (byte < 0x80) return value;
    }
    throw RuntimeError::typeMismatch();
  }
  /// One that `limit` is not reached by.
  std::uint64_t numberBelow(std::uint64_t limit) {
    const std::uint64_t value = number();
    if (value >= limit) throw RuntimeError::typeMismatch();
    return value;
  }
  std::string_view text() { return take(number()); }
  [[nodiscard]] bool atEnd() const { return bytes_.empty(); }

 private:
  std::string_view take(std::uint64_t size) {
    if (bytes_.size() < size) throw RuntimeError::typeMismatch();
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
  }

  std::string_view bytes_;
};

}  // namespace depcalc
