// What a text of comma-separated values consists of, and how it is to be read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace depcalc {

/// A place in the text, both counted from 1. Columns count characters, not bytes.
struct CsvPlace {
  std::size_t line = 1;
  std::size_t column = 1;
  friend bool operator==(const CsvPlace&, const CsvPlace&) = default;
};

struct CsvField {
  std::string_view text;  ///< valid until the next record is read
  CsvPlace place;         ///< of the field's first character, its quote included
};

struct CsvProblem {
  CsvPlace place;
  std::string message;
};

/// What one record may take; more is a problem, and memory stays bounded.
struct CsvLimits {
  std::size_t field_bytes = 65'536;
  std::size_t record_bytes = 1'048'576;
  std::size_t fields = 1'024;
};

/// How a text is to be read.
struct CsvForm {
  char separator = ',';  ///< one byte that is neither a quote nor a line end
  CsvLimits limits{};
};

}  // namespace depcalc
