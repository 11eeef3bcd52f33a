#include "host/stored/record_reader.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>

#include "host/stored/record_marks.h"
#include "values/number_text.h"
#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool endsNumber(char c) { return c == ',' || c == '}'; }

/// The digits from `at` on, `count` of them if there are so many.
struct Digits {
  std::uint64_t number = 0;
  std::ptrdiff_t count = 0;
};

Digits digitsAt(const char* at, const char* end) {
  const char* const first = at;
  std::uint64_t number = 0;
  for (; at != end && isDigit(*at); ++at) number = number * 10 + static_cast<unsigned>(*at - '0');
  return {number, at - first};
}

/// A date as it is written; empty where it is to be looked at more closely.
std::optional<Date> usualDate(std::string_view text) {
  const char* const at = text.data();
  const Digits year = digitsAt(at, at + 4);
  const Digits month = digitsAt(at + 5, at + 7);
  const Digits day = digitsAt(at + 8, at + 10);
  if (year.count + month.count + day.count != 8 || at[4] != '-' || at[7] != '-') return {};
  const auto y = static_cast<int>(year.number);
  const auto m = static_cast<int>(month.number);
  const auto d = static_cast<int>(day.number);
  if (y < 100 || !Date::exists(y, m, d)) return {};
  return Date::strict(y, m, d);
}

}  // namespace

void RecordReader::fail() { throw RuntimeError::typeMismatch(); }

/// A literal, its size known, costs no call.
template <std::size_t size>
void RecordReader::expect(const char (&token)[size]) {
  constexpr std::size_t length = size - 1;
  const bool there =
      static_cast<std::size_t>(end_ - at_) >= length && std::memcmp(at_, token, length) == 0;
  if (!there) fail();
  at_ += length;
}

std::string_view RecordReader::take(std::size_t size) {
  if (static_cast<std::size_t>(end_ - at_) < size) fail();
  const std::string_view taken(at_, size);
  at_ += size;
  return taken;
}

template <typename Kind>
std::string_view RecordReader::takeUntil(Kind kind) {
  const char* const first = at_;
  while (at_ != end_ && !kind(*at_)) ++at_;
  return {first, static_cast<std::size_t>(at_ - first)};
}

std::string RecordReader::string() {
  expect('"');
  std::string string(takeUntil(endsPlainText));
  while (!accept('"')) {
    string += escaped();
    string += takeUntil(endsPlainText);
  }
  return string;
}

bool RecordReader::passString(std::string_view text) {
  const char* const first = at_;
  expect('"');
  const std::string_view plain = takeUntil(endsPlainText);
  if (accept('"')) return equalIgnoringCase(plain, text);
  at_ = first;
  return equalIgnoringCase(string(), text);
}

StoredValue RecordReader::value() {
  const char first = at_ != end_ ? *at_ : '\0';
  if (first == '"') return StoredValue::text(string());
  if (first == '{') return date();
  if (first != 'n') return number();
  expect("null");
  return {};
}

void RecordReader::passValue() {
  if (at_ == end_) fail();
  if (*at_ == '{') {
    dateText();
  } else if (!accept('"')) {
    takeUntil(endsNumber);
  } else {
    while (takeUntil(endsPlainText), !accept('"')) escaped();
  }
}

std::string_view RecordReader::dateText() {
  expect(date_begin);
  const std::string_view day = take(date_size);
  expect(date_end);
  return day;
}

StoredValue RecordReader::date() {
  const std::string_view day = dateText();
  const auto date = usualDate(day);
  return StoredValue::date(date ? *date : Date::fromText(day, Date()));
}

/// An amount or an Integer of usual size in one pass; the rest in several.
StoredValue RecordReader::number() {
  constexpr std::ptrdiff_t decimals = 4;
  constexpr std::ptrdiff_t most_digits = 14;  // and the decimals, in 64 bits
  constexpr std::uint64_t most_of_integer = 32'767;
  const bool negative = at_ != end_ && *at_ == '-';
  const char* const first = at_ + (negative ? 1 : 0);
  const Digits whole = digitsAt(first, end_);
  const char* const behind = first + whole.count;
  if (whole.count == 0 || whole.count > most_digits || behind == end_) return unusualNumber();
  if (endsNumber(*behind) && whole.number <= most_of_integer) {
    at_ = behind;
    const auto number = static_cast<std::int16_t>(whole.number);
    return StoredValue::integer(negative ? static_cast<std::int16_t>(-number) : number);
  }
  if (*behind != '.' || end_ - behind <= 1 + decimals) return unusualNumber();
  const char* const last = behind + 1 + decimals;
  const Digits fraction = digitsAt(behind + 1, last);
  if (fraction.count != decimals || !endsNumber(*last)) return unusualNumber();
  at_ = last;
  const auto ticks = static_cast<std::int64_t>(whole.number * 10'000 + fraction.number);
  return StoredValue::currency(Currency::fromTicks(negative ? -ticks : ticks));
}

StoredValue RecordReader::unusualNumber() {
  const std::string_view digits = takeUntil(endsNumber);
  if (digits.find('e') != std::string_view::npos) return realNumber(digits);
  if (const auto amount = Currency::tryFromFixed4(digits)) return StoredValue::currency(*amount);
  std::int16_t whole = 0;
  const char* const last = digits.data() + digits.size();
  const auto end = std::from_chars(digits.data(), last, whole);
  if (end.ec != std::errc() || end.ptr != last) fail();
  return StoredValue::integer(whole);
}

/// What is written is read without detours. Zero has them for its sign, and what is no number for
/// its error.
StoredValue RecordReader::realNumber(std::string_view digits) {
  double number = 0;
  const char* const last = digits.data() + digits.size();
  const auto end = std::from_chars(digits.data(), last, number, std::chars_format::scientific);
  const bool read = end.ec == std::errc() && end.ptr == last && number != 0;
  return StoredValue::real(read ? number : numberFromText(digits));
}

char RecordReader::escaped() {
  expect('\\');
  const char kind = take(1).front();
  if (kind == '"' || kind == '\\') return kind;
  if (kind == 'n') return '\n';
  if (kind != 'u') fail();
  const std::string_view digits = take(4);
  unsigned code = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + 4, code, 16);
  if (end.ec != std::errc() || end.ptr != digits.data() + 4 || code >= 0x20) fail();
  return static_cast<char>(code);
}

}  // namespace depcalc
