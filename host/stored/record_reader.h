// The pieces of a record's text (host/stored/record_text.h), read one behind the other.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "values/stored_value.h"

namespace depcalc {

/// Whether a character is more in a string than itself.
constexpr bool endsPlainText(char c) { return c == '"' || c == '\\'; }

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

  /// Where a member ends or the first one begins: passes what stands before the next one's value
  /// if that is called `name`, to the letter; what a search would find at once is found by this.
  bool passName(std::string_view name) {
    constexpr std::size_t around = 4;  // separator, two quotes and colon
    const std::size_t size = name.size() + around;
    if (static_cast<std::size_t>(end_ - at_) < size) return false;
    const bool same = at_[1] == '"' && at_[size - 2] == '"' && at_[size - 1] == ':' &&
                      std::memcmp(at_ + 2, name.data(), name.size()) == 0;
    if (!same || std::any_of(name.begin(), name.end(), endsPlainText)) return false;
    at_ += size;
    return true;
  }

  [[noreturn]] static void fail();

 private:
  template <std::size_t size>
  void expect(const char (&token)[size]);
  std::string_view take(std::size_t size);
  /// What comes before the first character of a kind, or all that is left.
  template <typename Kind>
  std::string_view takeUntil(Kind kind);

  char escaped();
  std::string_view dateText();
  StoredValue date();
  StoredValue number();
  StoredValue unusualNumber();
  static StoredValue realNumber(std::string_view digits);

  const char* begin_;
  const char* at_;
  const char* end_;
};

}  // namespace depcalc
