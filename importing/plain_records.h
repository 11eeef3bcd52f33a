// The short way for records as most files have them.
#pragma once

#include <array>
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
  explicit PlainRecords(const CsvForm& form);

  /// Whether a byte stands for one character and means nothing more, in a field quoted or not.
  [[nodiscard]] bool isPlain(char byte) const { return plain_[static_cast<unsigned char>(byte)]; }

  /// Adds the fields of the record at the beginning of `text`, which stands at `place`; they point
  /// into it. Returns how many bytes record and line end take. 0, and no fields, where the record
  /// is not one of these or may go on behind the text.
  std::size_t read(std::string_view text, CsvPlace place, std::vector<CsvField>& fields) const;

 private:
  [[nodiscard]] std::size_t endOfField(std::string_view text, std::size_t at) const;
  [[nodiscard]] std::size_t endOfQuoted(std::string_view text, std::size_t at) const;

  CsvForm form_;
  std::array<bool, 256> plain_{};
};

}  // namespace depcalc
