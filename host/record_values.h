// The named values of a record.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "values/stored_value.h"

namespace depcalc {

/// Whether a record can keep `value` under `name`: an empty name, or a Double that is not finite,
/// is error 5.
void requireKeepable(std::string_view name, const StoredValue& value);

/// Values by name, in the order in which they were first set. Names ignore case; the spelling
/// used first is kept. Made for callers that go through the names in order: the search starts
/// behind the name found last. Copies share their entries until one of them changes.
class RecordValues {
 public:
  struct Entry {
    std::string name;
    StoredValue value;
    friend bool operator==(const Entry&, const Entry&) = default;
  };
  using Entries = std::vector<Entry>;
  /// What is kept of a record, where that is its values.
  using Kept = RecordValues;

  RecordValues() : RecordValues(Entries()) {}
  /// The names differ.
  explicit RecordValues(Entries entries)
      : entries_(std::make_shared<Entries>(std::move(entries))) {}

  /// Null when there is no such value.
  [[nodiscard]] const StoredValue* find(std::string_view name) const;
  /// The same as a value; Empty when there is none.
  [[nodiscard]] StoredValue get(std::string_view name) const;
  /// Creates or replaces what requireKeepable lets through.
  void set(std::string_view name, StoredValue value);

  [[nodiscard]] const Entries& entries() const { return *entries_; }
  [[nodiscard]] std::vector<std::string> names() const;
  [[nodiscard]] const RecordValues& kept() const { return *this; }

  friend bool operator==(const RecordValues& a, const RecordValues& b) {
    return a.entries() == b.entries();
  }

 private:
  [[nodiscard]] std::size_t position(std::string_view name) const;

  /// The entries, shared with no other copy.
  Entries& own();

  std::shared_ptr<Entries> entries_;
  mutable std::size_t next_ = 0;
};

}  // namespace depcalc
