#include "host/stored/record_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "values/json_text.h"
#include "values/number_text.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr std::string_view date_begin = "{\"date\":\"";
constexpr std::string_view date_end = "\"}";
constexpr std::size_t date_size = 10;  // yyyy-mm-dd
constexpr std::size_t shortest_usual_member = std::string_view("\"Dep10\":0.0000,").size();

void appendInteger(std::string& out, std::int16_t value) {
  std::array<char, 8> text;
  out.append(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}

void appendCurrency(std::string& out, Currency value) {
  std::array<char, Currency::fixed4_size> text;
  out.append(text.data(), value.writeFixed4(text.data()));
}

void appendValue(std::string& out, const StoredValue& value) {
  switch (value.type()) {
    case StoredValue::Type::empty:
      out += "null";
      return;
    case StoredValue::Type::integer:
      return appendInteger(out, value.get<std::int16_t>());
    case StoredValue::Type::real:
      out += exactNumberText(value.get<double>());
      return;
    case StoredValue::Type::currency:
      return appendCurrency(out, value.get<Currency>());
    case StoredValue::Type::date:
      out.append(date_begin).append(value.get<Date>().toIsoText()).append(date_end);
      return;
    case StoredValue::Type::text:
      return appendJsonString(out, value.get<std::string>());
  }
}

/// Reads what `textOfRecord` writes, and nothing else. Whatever does not fit is error 13.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  RecordValues record() {
    RecordValues::Entries entries;
    entries.reserve(text_.size() / shortest_usual_member);
    expect("{");
    if (!accept("}")) {
      do {
        std::string name = string();
        expect(":");
        entries.push_back({std::move(name), value()});
      } while (accept(","));
      expect("}");
    }
    if (!text_.empty()) fail();
    return RecordValues(std::move(entries));
  }

 private:
  [[noreturn]] static void fail() { throw RuntimeError::typeMismatch(); }
  bool accept(std::string_view token) {
    if (!text_.starts_with(token)) return false;
    text_.remove_prefix(token.size());
    return true;
  }
  void expect(std::string_view token) {
    if (!accept(token)) fail();
  }
  std::string_view take(std::size_t size) {
    if (text_.size() < size) fail();
    const std::string_view taken = text_.substr(0, size);
    text_.remove_prefix(size);
    return taken;
  }

  /// What comes before the first character of a kind, or all that is left.
  template <typename Kind>
  std::string_view takeUntil(Kind kind) {
    return take(
        static_cast<std::size_t>(std::find_if(text_.begin(), text_.end(), kind) - text_.begin()));
  }

  StoredValue value() {
    if (text_.starts_with('"')) return StoredValue::text(string());
    if (accept("null")) return {};
    if (accept(date_begin)) return date();
    return number();
  }

  StoredValue date() {
    const std::string_view day = take(date_size);
    expect(date_end);
    return StoredValue::date(Date::fromText(day, Date()));
  }

  StoredValue number() {
    const std::string_view digits = takeUntil([](char c) { return c == ',' || c == '}'; });
    if (const auto amount = Currency::tryFromFixed4(digits)) return StoredValue::currency(*amount);
    std::int16_t whole = 0;
    const char* const last = digits.data() + digits.size();
    const auto end = std::from_chars(digits.data(), last, whole);
    if (end.ec == std::errc() && end.ptr == last) return StoredValue::integer(whole);
    if (digits.find('e') == std::string_view::npos) fail();
    return StoredValue::real(numberFromText(digits));
  }

  std::string string() {
    expect("\"");
    std::string string;
    while (true) {
      string.append(takeUntil([](char c) { return c == '"' || c == '\\'; }));
      if (accept("\"")) return string;
      string += escaped();
    }
  }

  char escaped() {
    expect("\\");
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

  std::string_view text_;
};

}  // namespace

std::string textOfRecord(const RecordValues& values) {
  std::string text = "{";
  text.reserve(32 * values.entries().size() + 2);
  for (const RecordValues::Entry& entry : values.entries()) {
    if (text.size() > 1) text += ',';
    appendJsonString(text, entry.name);
    text += ':';
    appendValue(text, entry.value);
  }
  text += '}';
  return text;
}

RecordValues recordOfText(std::string_view text) { return Reader(text).record(); }

}  // namespace depcalc
