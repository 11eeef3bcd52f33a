// A text that is written piece by piece.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// Room for a text, into which writers put it themselves. What was written counts once it is ended.
class GrowingText {
 public:
  /// Where the text goes on, with room for `size` bytes.
  char* room(std::size_t size) {
    if (room_.size() - used_ < size) grow(size);
    return room_.data() + used_;
  }
  void endAt(const char* end) { used_ = static_cast<std::size_t>(end - room_.data()); }
  void clear() { used_ = 0; }

  [[nodiscard]] bool empty() const { return used_ == 0; }
  [[nodiscard]] std::string_view view() const { return {room_.data(), used_}; }

 private:
  /// More than most records have, and less than memory that costs more to get.
  static constexpr std::size_t usual_size = 1'000;
  void grow(std::size_t size) { room_.resize(std::max(usual_size, 2 * room_.size() + size)); }

  std::string room_;
  std::size_t used_ = 0;
};

}  // namespace depcalc
