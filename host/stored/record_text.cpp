#include "host/stored/record_text.h"

#include <algorithm>
#include <charconv>

#include "host/stored/growing_text.h"
#include "host/stored/record_marks.h"
#include "host/stored/record_reader.h"
#include "values/json_text.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr std::size_t shortest_usual_member = std::string_view("\"Dep10\":0.0000,").size();

/// Of a value that is no text: a date, the longest of them.
constexpr std::size_t most_room = 32;
static_assert(most_room >= sizeof date_begin + date_size + sizeof date_end);
static_assert(most_room >= Currency::fixed4_size);

char* writeText(std::string_view text, char* out) {
  return std::copy(text.begin(), text.end(), out);
}

}  // namespace

std::size_t valueRoom(const StoredValue& value) {
  if (value.type() != StoredValue::Type::text) return most_room;
  return jsonStringRoom(value.get<std::string>());
}

char* writeValue(const StoredValue& value, char* out) {
  switch (value.type()) {
    case StoredValue::Type::empty:
      break;
    case StoredValue::Type::integer:
      return std::to_chars(out, out + most_room, value.get<std::int16_t>()).ptr;
    case StoredValue::Type::real:
      return writeText(exactNumberText(value.get<double>()), out);
    case StoredValue::Type::currency:
      return value.get<Currency>().writeFixed4(out);
    case StoredValue::Type::date:
      return writeText(date_end, value.get<Date>().writeIsoText(writeText(date_begin, out)));
    case StoredValue::Type::text:
      return writeJsonString(value.get<std::string>(), out);
  }
  return writeText("null", out);
}

std::string textOfRecord(const RecordValues& values) {
  GrowingText text;
  for (const auto& [name, value] : values.entries()) {
    char* at = text.room(2 + jsonStringRoom(name) + valueRoom(value));
    *at++ = text.empty() ? '{' : ',';
    at = writeJsonString(name, at);
    *at++ = ':';
    text.endAt(writeValue(value, at));
  }
  return text.empty() ? "{}" : std::string(text.view()).append("}");
}

RecordValues recordOfText(std::string_view text) {
  RecordReader reader(text);
  RecordValues::Entries entries;
  entries.reserve(text.size() / shortest_usual_member);
  reader.expect('{');
  if (!reader.accept('}')) {
    do {
      std::string name = reader.string();
      reader.expect(':');
      entries.push_back({std::move(name), reader.value()});
    } while (reader.accept(','));
    reader.expect('}');
  }
  if (!reader.atEnd()) RecordReader::fail();
  return RecordValues(std::move(entries));
}

}  // namespace depcalc
