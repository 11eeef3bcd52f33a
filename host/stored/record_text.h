// A record as the text that a company file keeps.
#pragma once

#include <string>
#include <string_view>

#include "host/record_values.h"

namespace depcalc {

/// A JSON object with a member per value, in the values' order. The type shows in how a value is
/// written: Empty null, Integer 2023, Double with an exponent 5e+00, Currency with four decimals
/// 1250.5000, Date {"date":"2023-03-15"}, String "text".
std::string textOfRecord(const RecordValues& values);

/// The values of a text that `textOfRecord` wrote. Any other text is an error, mostly 13.
RecordValues recordOfText(std::string_view text);

/// Writes a value as a record's text has it, into at least `valueRoom` bytes; returns its end.
char* writeValue(const StoredValue& value, char* out);
std::size_t valueRoom(const StoredValue& value);

}  // namespace depcalc
