// The short way for records as most files have them.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "importing/csv_record.h"

namespace depcalc {

/// Reads records of which every character is one byte and whose quotes only enclose fields. Any
/// other record is left to `CsvReader`, which decides alone what is no record and why: what is read
/// here, it would read just so.
class PlainRecords {
 public:
  explicit PlainRecords(const CsvForm& form) : form_(form) {}

  /// Whether a byte stands for one character and means nothing more, in a field quoted or not.
  [[nodiscard]] bool isPlain(char byte) const {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x20 && code < 0x80 && byte != form_.separator && byte != '"';
  }

  /// Adds the fields of the record at the beginning of `text`, which stands at `place`; they point
  /// into it. Returns how many bytes record and line end take. 0, and no fields, where the record
  /// is not one of these or may go on behind the text.
  std::size_t read(std::string_view text, CsvPlace place, std::vector<CsvField>& fields) const;

 private:
  CsvForm form_;
};

}  // namespace depcalc
