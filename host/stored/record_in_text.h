// The values of a record that is kept as its text.
#pragma once

#include <bitset>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/stored/growing_text.h"
#include "host/stored/shared_text.h"
#include "values/stored_value.h"

namespace depcalc {

class RecordReader;

/// Values by name as RecordValues (host/record_values.h) has them, but read from the record's text
/// (host/stored/record_text.h) only when they are asked for, and put into it as they are set. Made
/// for callers that go through the names in order: the search starts behind the name found last.
/// What is no record's text is error 13 where it is met.
class RecordInText {
 public:
  /// What is kept of a record.
  using Kept = SharedText;

  /// Without values.
  RecordInText();
  explicit RecordInText(SharedText text);

  /// Empty when there is no such value.
  [[nodiscard]] StoredValue get(std::string_view name) const;
  /// Creates or replaces what requireKeepable lets through.
  void set(std::string_view name, const StoredValue& value);
  /// In the order in which they were first set.
  [[nodiscard]] std::vector<std::string> names() const;

  /// The text with all that was set.
  [[nodiscard]] const SharedText& kept() const;

 private:
  /// A bit for each digest of a name.
  using Digests = std::bitset<4'096>;

  [[nodiscard]] StoredValue read(RecordReader& reader) const;
  [[nodiscard]] bool isSurelyNew(std::string_view name);
  // A place in the text rather than a value that may be none, which costs a search that finds its
  // name at once more than the search.
  static constexpr std::size_t nowhere = std::string_view::npos;
  void knowNames(std::string_view added);
  [[nodiscard]] std::size_t find(std::string_view name) const;
  [[nodiscard]] std::size_t findBetween(std::size_t from, std::size_t to,
                                        std::string_view name) const;
  [[nodiscard]] std::size_t end() const { return text_.view().size() - 1; }
  void replace(std::size_t old, const StoredValue& value);
  void append(std::string_view name, const StoredValue& value);
  char* room(std::size_t size);
  [[nodiscard]] std::size_t requireBoundary(std::size_t at) const;
  void join() const;

  // What the record's text is: `text_`, or once something was set, `set_` and `text_` from `at_`
  // on. There a member ends, or the first one begins.
  mutable SharedText text_;
  mutable std::size_t at_ = 0;
  mutable GrowingText set_;
  std::unique_ptr<Digests> digests_;  ///< of all names, once one was added
};

}  // namespace depcalc
