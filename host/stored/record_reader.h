// The pieces of a record's text (host/stored/record_text.h), read one behind the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "values/stored_value.h"

namespace depcalc {

/// Reads what `textOfRecord` writes, and nothing else. Whatever does not fit is error 13.
class RecordReader {
 public:
  /// `text` must outlive this; reading begins `at` bytes into it.
  explicit RecordReader(std::string_view text, std::size_t at = 0)
      : begin_(text.data()), at_(begin_ + at), end_(begin_ + text.size()) {}

  /// How many bytes were read.
  [[nodiscard]] std::size_t at() const { return static_cast<std::size_t>(at_ - begin_); }
  [[nodiscard]] bool atEnd() const { return at_ == end_; }

  bool accept(char c) {
    const bool there = at_ != end_ && *at_ == c;
    if (there) ++at_;
    return there;
  }
  void expect(char c) {
    if (!accept(c)) fail();
  }

  std::string string();
  StoredValue value();

  /// Passes a string; whether it says `text`, the case of letters apart.
  bool passString(std::string_view text);
  void passValue();

  [[noreturn]] static void fail();

 private:
  bool accept(std::string_view token);
  void expect(std::string_view token) {
    if (!accept(token)) fail();
  }
  std::string_view take(std::size_t size);
  /// What comes before the first character of a kind, or all that is left.
  template <typename Kind>
  std::string_view takeUntil(Kind kind);

  char escaped();
  std::string_view dateText();
  StoredValue number();
  StoredValue unusualNumber();

  const char* begin_;
  const char* at_;
  const char* end_;
};

}  // namespace depcalc
