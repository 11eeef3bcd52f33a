// A text that everybody who has it shares.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace depcalc {

/// A text that does not change, held in one piece of memory however many copies there are of this.
class SharedText {
 public:
  SharedText() = default;
  /// Copies what is given, `tail` behind `head`.
  explicit SharedText(std::string_view head, std::string_view tail = {});

  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }

 private:
  std::shared_ptr<const char[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace depcalc
