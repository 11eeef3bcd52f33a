#include "host/record_values.h"

#include <cmath>
#include <utility>

#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {

std::size_t RecordValues::position(std::string_view name) const {
  const std::size_t count = entries_.size();
  std::size_t at = next_ < count ? next_ : 0;
  for (std::size_t looked = 0; looked < count; ++looked) {
    if (equalIgnoringCase(entries_[at].name, name)) {
      next_ = at + 1;
      return at;
    }
    if (++at == count) at = 0;
  }
  return count;
}

const StoredValue* RecordValues::find(std::string_view name) const {
  const std::size_t at = position(name);
  return at < entries_.size() ? &entries_[at].value : nullptr;
}

void RecordValues::set(std::string_view name, StoredValue value) {
  const bool finite = value.type() != StoredValue::Type::real || std::isfinite(value.get<double>());
  if (name.empty() || !finite) throw RuntimeError::invalidCall();
  const std::size_t at = position(name);
  if (at < entries_.size()) {
    entries_[at].value = std::move(value);
  } else {
    append(std::string(name), std::move(value));
  }
}

void RecordValues::append(std::string name, StoredValue value) {
  entries_.push_back({std::move(name), std::move(value)});
}

}  // namespace depcalc
