#include "host/record_values.h"

#include <cmath>
#include <utility>

#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {

void requireKeepable(std::string_view name, const StoredValue& value) {
  const bool finite = value.type() != StoredValue::Type::real || std::isfinite(value.get<double>());
  if (name.empty() || !finite) throw RuntimeError::invalidCall();
}

RecordValues::Entries& RecordValues::own() {
  if (entries_.use_count() > 1) entries_ = std::make_shared<Entries>(*entries_);
  return *entries_;
}

std::size_t RecordValues::position(std::string_view name) const {
  const std::size_t count = entries_->size();
  std::size_t at = next_ < count ? next_ : 0;
  for (std::size_t looked = 0; looked < count; ++looked) {
    if (const std::string& known = (*entries_)[at].name;
        known.size() == name.size() && (known == name || equalIgnoringCase(known, name))) {
      next_ = at + 1;
      return at;
    }
    if (++at == count) at = 0;
  }
  return count;
}

const StoredValue* RecordValues::find(std::string_view name) const {
  const std::size_t at = position(name);
  return at < entries_->size() ? &(*entries_)[at].value : nullptr;
}

StoredValue RecordValues::get(std::string_view name) const {
  const StoredValue* value = find(name);
  return value != nullptr ? *value : StoredValue();
}

void RecordValues::set(std::string_view name, StoredValue value) {
  requireKeepable(name, value);
  const std::size_t at = position(name);
  if (at < entries_->size()) {
    own()[at].value = std::move(value);
  } else {
    own().push_back({std::string(name), std::move(value)});
  }
}

std::vector<std::string> RecordValues::names() const {
  std::vector<std::string> names;
  for (const Entry& entry : entries()) names.push_back(entry.name);
  return names;
}

}  // namespace depcalc
