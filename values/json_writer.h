// JSON, written piece by piece.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "values/currency.h"
#include "values/json_text.h"

namespace depcalc {

/// The name of a value. A literal that would have to be escaped does not compile, so that none is
/// looked through each time it is written.
class JsonName {
 public:
  template <std::size_t size>
  consteval JsonName(const char (&literal)[size]) : text_(literal, size - 1), literal_(true) {
    if (!std::all_of(text_.begin(), text_.end(), isPlainInJson)) throw "needs escapes";
  }
  JsonName(std::string_view text) : text_(text) {}
  JsonName(const std::string& text) : text_(text) {}

  [[nodiscard]] std::string_view text() const { return text_; }
  [[nodiscard]] bool isLiteral() const { return literal_; }

 private:
  std::string_view text_;
  bool literal_ = false;
};

/// Writes one JSON document, separators and the line end behind it included.
class JsonWriter {
 public:
  /// What an array holds is written beside each other, or each on a line of its own.
  enum class Layout { beside, below };

  JsonWriter& beginObject() { return begin('{', '}', Layout::beside); }
  JsonWriter& endObject() { return end(); }
  JsonWriter& beginArray(Layout layout = Layout::beside) { return begin('[', ']', layout); }
  JsonWriter& endArray() { return end(); }
  /// The array or object holds something already, which another writer wrote.
  void goOn() { levels_.back().any = true; }

  /// Names the value that follows, within an object.
  JsonWriter& name(const JsonName& name) {
    if (!name.isLiteral()) return escapedName(name.text());
    char* at = separated(name.text().size() + 3);
    *at++ = '"';
    at = std::copy(name.text().begin(), name.text().end(), at);
    *at++ = '"';
    return named(at);
  }

  JsonWriter& text(std::string_view text);
  /// A text with four decimals, so that no reader rounds it.
  JsonWriter& money(Currency amount);
  JsonWriter& number(std::int64_t number);
  /// Written as it is: digits that are JSON.
  JsonWriter& number(std::string_view digits) { return verbatim(digits); }
  JsonWriter& null() { return verbatim("null"); }

  /// What was written since the last time, valid until more is: a long document need not be held.
  [[nodiscard]] std::string_view take() { return {text_.data(), std::exchange(used_, 0)}; }

 private:
  /// An array or object that is not ended yet.
  struct Level {
    char end;
    Layout layout;
    bool any = false;  // whether it holds anything
  };

  JsonWriter& begin(char begin, char end, Layout layout);
  JsonWriter& end();
  JsonWriter& escapedName(std::string_view name);
  JsonWriter& verbatim(std::string_view json);

  JsonWriter& named(char* at) {
    *at++ = ':';
    named_ = true;
    return endAt(at);
  }

  /// Where the value or name that follows begins, behind what separates it from what is there
  /// already, with `room` for it.
  char* separated(std::size_t room) {
    constexpr std::size_t separators = 2;
    if (text_.size() - used_ < room + separators) grow(room + separators);
    char* at = &text_[used_];
    if (std::exchange(named_, false) || levels_.empty()) return at;
    Level& level = levels_.back();
    if (std::exchange(level.any, true)) *at++ = ',';
    if (level.layout == Layout::below) *at++ = '\n';
    return at;
  }
  void grow(std::size_t room) { text_.resize(2 * text_.size() + room); }

  JsonWriter& endAt(const char* at) {
    used_ = static_cast<std::size_t>(at - text_.data());
    return *this;
  }

  std::string text_ = std::string(4'096, '\0');  // room; what is written ends at used_
  std::size_t used_ = 0;
  std::vector<Level> levels_;
  bool named_ = false;  // the value that follows has its name
};

}  // namespace depcalc
