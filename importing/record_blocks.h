// A long text of comma-separated values, cut between its records.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "importing/byte_source.h"

namespace depcalc {

/// Where the records of a text end: what `CsvReader` goes by, whatever is wrong with them. A quote
/// opens a quoted field at a field's beginning only; within one, line ends and separators mean
/// nothing.
class RecordEnds {
 public:
  explicit RecordEnds(char separator) : separator_(separator) {}

  /// How many bytes of `text`, which goes on where the last one ended, belong to records that have
  /// ended. A carriage return at its end is not taken for an end: a line feed may follow.
  std::size_t wholeRecords(std::string_view text);

 private:
  enum class In { beginning, plain, quoted, quote };
  [[nodiscard]] bool endsField(char byte) const;
  std::size_t takeUnquoted(std::string_view text, std::size_t at, std::size_t& whole);
  std::size_t takeQuoted(std::string_view text, std::size_t at);

  char separator_;
  In in_ = In::beginning;
};

/// How much of a text is handed out at a time.
struct BlockSizes {
  std::size_t usual = 16'384;     ///< bytes, at least, but for the last
  std::size_t largest = 262'144;  ///< a record longer than this is left to whoever reads it
};

/// Hands out a text in blocks of whole records.
class RecordBlocks {
 public:
  struct Block {
    std::string text;
    std::size_t line = 1;  ///< on which it begins
    bool is_open = false;  ///< its last record goes on in the source, to which all else is left
  };

  /// `begun` is what was read of `source` already and stands on `line`; where it is `exhausted`
  /// there is no more.
  RecordBlocks(ByteSource& source, char separator, std::string_view begun, std::size_t line,
               bool exhausted, BlockSizes sizes = {});

  /// False at the end. What was read before the source failed is handed out as far as its records
  /// ended.
  bool next(Block& block);
  /// Whether the source has come to its end, not failed, and everything of it is handed out.
  [[nodiscard]] bool ended() const { return exhausted_ && !unreadable_ && begin_ == held_.size(); }

 private:
  [[nodiscard]] std::string_view fresh() const;
  [[nodiscard]] bool allLookedAt() const;
  void look();
  void fill();
  void hand(Block& block, std::size_t size);

  ByteSource& source_;
  BlockSizes sizes_;
  RecordEnds ends_;
  std::string held_;           ///< what was read
  std::size_t begin_ = 0;      ///< of what is not handed out in it
  std::size_t looked_at_ = 0;  ///< bytes behind that
  std::size_t whole_ = 0;      ///< bytes behind it that are whole records
  std::size_t line_;
  bool exhausted_;
  bool unreadable_ = false;
};

}  // namespace depcalc
