#include "host/stored/shared_text.h"

#include <algorithm>
#include <utility>

namespace depcalc {

SharedText::SharedText(std::string_view head, std::string_view tail)
    : size_(head.size() + tail.size()) {
  auto bytes = std::make_shared_for_overwrite<char[]>(size_);
  std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), bytes.get()));
  bytes_ = std::move(bytes);
}

}  // namespace depcalc
