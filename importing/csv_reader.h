// Comma-separated values, read record by record.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "importing/byte_source.h"
#include "importing/csv_record.h"
#include "importing/plain_records.h"
#include "values/utf8.h"

namespace depcalc {

/// Reads RFC 4180: fields parted by commas (or another separator), quoted where they hold commas,
/// line ends or quotes (doubled). Lines end with LF, CRLF or CR, mixed at will; the last may have
/// none. Wholly empty lines are no records. The text is UTF-8, with or without a byte order mark.
///
/// A record that is not well formed is a problem, and the next one is read as usual. A text in
/// UTF-16 or UTF-32 is one problem, and nothing after it is read.
class CsvReader {
 public:
  enum class Outcome {
    record,      ///< `record()` holds it
    problem,     ///< `problem()` says what is wrong with it, and where
    end,         ///< nothing is left
    unreadable,  ///< the source failed
  };

  /// `source` must outlive the reader.
  explicit CsvReader(ByteSource& source, const CsvForm& form = {});
  /// Goes on in a text at the beginning of `line`, where a record begins.
  CsvReader(ByteSource& source, const CsvForm& form, std::size_t line);

  Outcome next();

  /// What stands before anything was read: the first line and whatever came with it, as far as 64
  /// KiB hold it. Valid until `next`.
  [[nodiscard]] std::string_view beginning();

  /// What was read of the source behind the last record; the line that it begins on; and whether
  /// the source had nothing more. For whoever reads on in this reader's place.
  struct Rest {
    std::string_view text;
    std::size_t line;
    bool exhausted;
  };
  [[nodiscard]] Rest rest() const {
    return {{&buffer_[at_], filled_ - at_}, place_.line, exhausted_};
  }

  [[nodiscard]] const std::vector<CsvField>& record() const { return fields_; }
  [[nodiscard]] const CsvProblem& problem() const { return problem_; }

 private:
  static constexpr int end_of_text = -1;

  int peek() { return at_ < filled_ || fill() ? static_cast<unsigned char>(buffer_[at_]) : -1; }
  [[nodiscard]] int separatorByte() const { return static_cast<unsigned char>(form_.separator); }
  [[nodiscard]] bool endsField(int next) const {
    return next == separatorByte() || next == '\n' || next == '\r' || next == end_of_text;
  }
  bool fill();
  int take();
  void checkCharacter(unsigned char byte);
  void advancePlace(unsigned char byte);

  bool beginText();
  void skipEmptyLines();
  bool readPlainRecord();
  void readField();
  void readPlain();
  void readQuoted();
  void keepPlainRun();
  void keep(std::string_view bytes);
  bool takeSeparator();
  void endRecord();
  void failOpen(CsvPlace opened);
  void fail(CsvPlace place, std::string message);

  ByteSource& source_;
  CsvForm form_;
  PlainRecords plain_;
  std::unique_ptr<char[]> buffer_;
  std::size_t at_ = 0;
  std::size_t filled_ = 0;
  bool begun_ = false;
  bool exhausted_ = false;
  bool unreadable_ = false;

  Utf8Check utf8_;
  CsvPlace place_;
  CsvPlace character_;  ///< where the character that is being read began

  std::string content_;                 ///< the record's fields, one behind the other
  std::vector<std::size_t> beginning_;  ///< where in `content_` each field begins
  std::vector<CsvField> fields_;
  bool failed_ = false;
  CsvProblem problem_;
};

}  // namespace depcalc
