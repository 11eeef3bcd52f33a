#include "controls/drop_down_list.h"

#include <algorithm>

#include "values/runtime_error.h"

namespace depcalc {

void DropDownList::setIndex(int index) {
  if (index < none || index >= count()) throw RuntimeError::invalidCall();
  if (assign(index_, index, Aspect::choice)) raise("Change", onChange);
}

std::string DropDownList::text() const {
  return index_ == none ? std::string() : items_[static_cast<std::size_t>(index_)];
}

void DropDownList::setText(std::string_view text) {
  const auto item = std::find(items_.begin(), items_.end(), text);
  if (item == items_.end()) throw RuntimeError::invalidCall();
  setIndex(static_cast<int>(item - items_.begin()));
}

}  // namespace depcalc
