// The named values of a record.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "values/stored_value.h"

namespace depcalc {

/// Values by name, in the order in which they were first set. Names ignore case; the spelling
/// used first is kept. Made for callers that go through the names in order: the search starts
/// behind the name found last.
class RecordValues {
 public:
  struct Entry {
    std::string name;
    StoredValue value;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  /// Null when there is no such value.
  [[nodiscard]] const StoredValue* find(std::string_view name) const;
  /// Creates or replaces. An empty name, or a Double that is not finite: error 5.
  void set(std::string_view name, StoredValue value);
  /// Adds a value whose name is known to be new.
  void append(std::string name, StoredValue value);
  void reserve(std::size_t count) { entries_.reserve(count); }

  [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }

  friend bool operator==(const RecordValues& a, const RecordValues& b) {
    return a.entries_ == b.entries_;
  }

 private:
  [[nodiscard]] std::size_t position(std::string_view name) const;

  std::vector<Entry> entries_;
  mutable std::size_t next_ = 0;
};

}  // namespace depcalc
