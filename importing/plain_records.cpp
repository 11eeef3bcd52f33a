#include "importing/plain_records.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace depcalc {
namespace {

constexpr std::uint64_t in_each_byte = 0x0101'0101'0101'0101;
constexpr std::uint64_t highest_bits = 0x80 * in_each_byte;

/// The highest bit of each byte that is 0, and no other bit.
constexpr std::uint64_t zeroBytes(std::uint64_t bytes) {
  constexpr std::uint64_t others = ~highest_bits;
  return ~(((bytes & others) + others) | bytes | others);
}

constexpr std::uint64_t eightTimes(char byte) {
  return static_cast<unsigned char>(byte) * in_each_byte;
}

/// The bytes of a text that are not plain, one after the other, found eight at a time.
class OtherBytes {
 public:
  OtherBytes(std::string_view text, char separator)
      : text_(text), separators_(eightTimes(separator)) {
    look();
  }

  /// Where the next one stands; at the text's end there is always one.
  std::size_t next() {
    while (found_ == 0) {
      begin_ += sizeof found_;
      look();
    }
    const auto at = static_cast<std::size_t>(std::countr_zero(found_)) / 8;
    found_ &= found_ - 1;
    return std::min(begin_ + at, text_.size());
  }

 private:
  void look() {
    std::uint64_t bytes = 0;  // what is behind the end is not plain
    const std::size_t left = text_.size() - std::min(begin_, text_.size());
    if (left >= sizeof bytes) {
      std::memcpy(&bytes, &text_[begin_], sizeof bytes);
    } else if (left > 0) {
      std::memcpy(&bytes, &text_[begin_], left);
    }
    if constexpr (std::endian::native == std::endian::big) bytes = __builtin_bswap64(bytes);
    constexpr std::uint64_t beyond_control = 0xE0 * in_each_byte;
    found_ = zeroBytes(bytes ^ separators_) | zeroBytes(bytes ^ eightTimes('"')) |
             zeroBytes(bytes & beyond_control) | (bytes & highest_bits);
  }

  std::string_view text_;
  std::uint64_t separators_;
  std::size_t begin_ = 0;
  std::uint64_t found_ = 0;
};

/// The bytes of the line end at `at`; 0 where there is none or more of it may follow.
std::size_t lineEndAt(std::string_view text, std::size_t at) {
  if (text[at] == '\n') return 1;
  if (text[at] != '\r' || at + 1 == text.size()) return 0;
  return text[at + 1] == '\n' ? 2 : 1;
}

}  // namespace

std::size_t PlainRecords::read(std::string_view text, CsvPlace place,
                               std::vector<CsvField>& fields) const {
  const auto left_alone = [&fields] { return fields.clear(), std::size_t{0}; };
  text = text.substr(0, form_.limits.record_bytes);
  const auto is = [text](std::size_t at, char byte) {
    return at < text.size() && text[at] == byte;
  };
  OtherBytes others(text, form_.separator);
  for (std::size_t begin = 0; fields.size() < form_.limits.fields;) {
    std::size_t first = begin;
    std::size_t end = others.next();
    std::size_t behind = end;
    if (is(begin, '"')) {
      do {
        end = others.next();
      } while (is(end, form_.separator));
      if (!is(end, '"')) return left_alone();
      ++first;
      behind = others.next();
      if (behind != end + 1) return left_alone();
    }
    if (behind == text.size() || behind - begin > form_.limits.field_bytes) return left_alone();
    fields.push_back({text.substr(first, end - first), {place.line, place.column + begin}});
    if (!is(behind, form_.separator)) {
      const std::size_t line_end = lineEndAt(text, behind);
      return line_end == 0 ? left_alone() : behind + line_end;
    }
    begin = behind + 1;
  }
  return left_alone();
}

}  // namespace depcalc
