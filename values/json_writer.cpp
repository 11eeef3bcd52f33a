#include "values/json_writer.h"

#include <charconv>

namespace depcalc {

JsonWriter& JsonWriter::begin(char begin, char end, Layout layout) {
  char* at = separated(1);
  *at++ = begin;
  endAt(at);
  levels_.push_back({end, layout});
  return *this;
}

JsonWriter& JsonWriter::end() {
  const Level level = levels_.back();
  levels_.pop_back();
  named_ = true;  // nothing separates an end from what is before it
  char* at = separated(3);
  if (level.layout == Layout::below && level.any) *at++ = '\n';
  *at++ = level.end;
  if (levels_.empty()) *at++ = '\n';
  return endAt(at);
}

JsonWriter& JsonWriter::escapedName(std::string_view name) {
  return named(writeJsonString(name, separated(jsonStringRoom(name) + 1)));
}

JsonWriter& JsonWriter::text(std::string_view text) {
  return endAt(writeJsonString(text, separated(jsonStringRoom(text))));
}

JsonWriter& JsonWriter::money(Currency amount) {
  char* at = separated(Currency::fixed4_size + 2);
  *at++ = '"';
  at = amount.writeFixed4(at);
  *at++ = '"';
  return endAt(at);
}

JsonWriter& JsonWriter::number(std::int64_t number) {
  constexpr std::size_t longest = 20;
  char* const at = separated(longest);
  return endAt(std::to_chars(at, at + longest, number).ptr);
}

JsonWriter& JsonWriter::verbatim(std::string_view json) {
  return endAt(std::copy(json.begin(), json.end(), separated(json.size())));
}

}  // namespace depcalc
