// A file of rows and columns as it stands, before anything in it means something.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "importing/csv_reader.h"
#include "importing/text_bytes.h"

namespace depcalc {

/// What a text of a company file and the row around it may take.
inline constexpr CsvLimits import_limits{.field_bytes = 4'194'304,
                                         .record_bytes = 4'194'304 + CsvLimits().record_bytes};

struct FileRow {
  std::size_t line = 1;  ///< of the file, where it begins
  std::vector<std::string> cells;
  std::string problem;  ///< why it cannot be read as a row; then it has no cells
};

/// Rows without anything in them are left out.
struct FileTable {
  std::vector<FileRow> rows;
  std::size_t beyond = 0;  ///< rows that were read and not kept, for there are too many
};

/// What parts the fields of `text`, a comma where nothing seems to: the separator by which its rows
/// have the same number of fields, the more the better. A first line "sep=;" says so.
char detectedSeparator(std::string_view text);

/// Reads the rows of a text, some at a time.
class TableReading {
 public:
  /// Keeps the first `most_rows`. `text` must outlive the reading.
  TableReading(std::string_view text, char separator, std::size_t most_rows);

  /// Reads up to `rows` rows. Returns whether more are left.
  bool goOn(std::size_t rows, FileTable& table);

  /// How much of the text has been read, from 0 to 1.
  [[nodiscard]] double done() const;

 private:
  void keep(FileTable& table);

  std::size_t size_;
  TextBytes bytes_;
  CsvReader reader_;
  std::size_t most_rows_;
};

}  // namespace depcalc
