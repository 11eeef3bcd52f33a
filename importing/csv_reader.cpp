#include "importing/csv_reader.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace depcalc {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view not_utf8 = "The text is not UTF-8; please save it as UTF-8.";
constexpr std::size_t buffer_size = 65'536;
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

struct EncodingMark {
  std::string_view mark;
  std::string_view encoding;
};

/// The byte order marks of other encodings, a longer one before its own beginning.
constexpr std::array<EncodingMark, 13> foreign_marks{{{"\xFF\xFE\0\0"sv, "UTF-32"},
                                                      {"\0\0\xFE\xFF"sv, "UTF-32"},
                                                      {"\xFF\xFE", "UTF-16"},
                                                      {"\xFE\xFF", "UTF-16"},
                                                      {"+/v8", "UTF-7"},
                                                      {"+/v9", "UTF-7"},
                                                      {"+/v+", "UTF-7"},
                                                      {"+/v/", "UTF-7"},
                                                      {"\xF7\x64\x4C", "UTF-1"},
                                                      {"\xDD\x73\x66\x73", "UTF-EBCDIC"},
                                                      {"\x0E\xFE\xFF", "SCSU"},
                                                      {"\xFB\xEE\x28", "BOCU-1"},
                                                      {"\x84\x31\x95\x33", "GB 18030"}}};

/// The name of the encoding that a text with this beginning is in, where it is not UTF-8.
std::string_view foreignEncoding(std::string_view beginning) {
  for (const auto& [mark, encoding] : foreign_marks) {
    if (beginning.starts_with(mark)) return encoding;
  }
  return {};
}

std::string grouped(std::size_t count) {
  std::string text = std::to_string(count);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
  return text;
}

}  // namespace

CsvReader::CsvReader(ByteSource& source, const CsvForm& form)
    : source_(source), form_(form), plain_(form), buffer_(std::make_unique_for_overwrite<char[]>(buffer_size)) {}

CsvReader::CsvReader(ByteSource& source, const CsvForm& form, std::size_t line)
    : CsvReader(source, form) {
  begun_ = true;
  place_.line = line;
}

std::string_view CsvReader::beginning() {
  constexpr std::string_view line_ends = "\r\n";
  const auto held = [this] { return std::string_view(&buffer_[at_], filled_ - at_); };
  while (held().find_first_of(line_ends) == std::string_view::npos && filled_ - at_ < buffer_size &&
         fill()) {
  }
  return held();
}

bool CsvReader::fill() {
  if (exhausted_) return false;
  std::copy(&buffer_[at_], &buffer_[filled_], &buffer_[0]);
  filled_ -= std::exchange(at_, 0);
  const auto count = source_.read(std::span(&buffer_[filled_], buffer_size - filled_));
  unreadable_ = !count;
  exhausted_ = count.value_or(0) == 0;
  filled_ += count.value_or(0);
  return !exhausted_;
}

int CsvReader::take() {
  const int next = peek();
  if (next == end_of_text) return next;
  ++at_;
  const auto byte = static_cast<unsigned char>(next);
  checkCharacter(byte);
  advancePlace(byte);
  return next;
}

void CsvReader::checkCharacter(unsigned char byte) {
  if (utf8_.atBoundary()) character_ = place_;
  if (!utf8_.accepts(byte)) fail(character_, std::string(not_utf8));
  if (byte == 0)
    fail(place_, "The file contains a NUL character; please save it as plain UTF-8 text.");
}

void CsvReader::advancePlace(unsigned char byte) {
  const bool ends_line = byte == '\n' || (byte == '\r' && peek() != '\n');
  if (ends_line) {
    place_ = {place_.line + 1, 1};
  } else if (utf8_.atBoundary()) {
    ++place_.column;
  }
}

CsvReader::Outcome CsvReader::next() {
  content_.clear();
  beginning_.clear();
  fields_.clear();
  failed_ = false;
  if (!std::exchange(begun_, true) && !beginText()) return Outcome::problem;
  skipEmptyLines();
  if (peek() == end_of_text) return unreadable_ ? Outcome::unreadable : Outcome::end;
  if (readPlainRecord()) return Outcome::record;
  if (readPlainRecord()) return Outcome::record;
  do {
    readField();
  } while (takeSeparator());
  if (unreadable_) return Outcome::unreadable;
  endRecord();
  return failed_ ? Outcome::problem : Outcome::record;
}

/// Skips the byte order mark; a mark of another encoding is a problem that ends the text.
bool CsvReader::beginText() {
  while (filled_ < 4 && fill()) {
  }
  const std::string_view beginning(&buffer_[0], std::min<std::size_t>(filled_, 4));
  if (beginning.starts_with(utf8_mark)) at_ = utf8_mark.size();
  const auto encoding = foreignEncoding(beginning);
  if (encoding.empty()) return true;
  fail(place_, "The text is in " + std::string(encoding) + "; please save it as UTF-8.");
  exhausted_ = true;
  at_ = filled_;
  return false;
}

void CsvReader::skipEmptyLines() {
  while (peek() == '\n' || peek() == '\r') take();
}

bool CsvReader::readPlainRecord() {
  if (!utf8_.atBoundary()) return false;
  const std::size_t taken = plain_.read({&buffer_[at_], filled_ - at_}, place_, fields_);
  if (taken == 0) return false;
  at_ += taken;
  place_ = {place_.line + 1, 1};
  return true;
}

void CsvReader::readField() {
  if (fields_.size() == form_.limits.fields) {
    fail(place_, "The record has more than " + grouped(form_.limits.fields) + " fields.");
  }
  if (!failed_) {
    beginning_.push_back(content_.size());
    fields_.push_back({{}, place_});
  }
  if (peek() == '"') readQuoted();
  readPlain();
}

/// Up to the separator. Behind a closed quote nothing is left to read here.
void CsvReader::readPlain() {
  while (true) {
    keepPlainRun();
    const int next = peek();
    if (endsField(next)) return;
    if (next == '"')
      fail(place_,
           "A quote appears inside an unquoted field; please enclose the whole field in quotes and "
           "double the quotes inside it.");
    const char byte = static_cast<char>(take());
    keep({&byte, 1});
  }
}

void CsvReader::readQuoted() {
  const CsvPlace opened = place_;
  take();
  while (true) {
    keepPlainRun();
    const int next = take();
    if (next == end_of_text) return failOpen(opened);
    if (next == '"' && peek() != '"') break;
    if (next == '"') take();
    const char byte = static_cast<char>(next);
    keep({&byte, 1});
  }
  const int next = peek();
  if (!endsField(next)) {
    fail(place_,
         "Text follows the closing quote of the field; please double quotes that appear "
         "inside.");
  }
}

void CsvReader::keepPlainRun() {
  if (!utf8_.atBoundary()) return;
  const std::size_t begin = at_;
  while (at_ < filled_ && plain_.isPlain(buffer_[at_])) ++at_;
  place_.column += at_ - begin;
  keep({&buffer_[begin], at_ - begin});
}

/// Bytes come in portions of any size; the limit that the bytes one by one would meet first counts.
void CsvReader::keep(std::string_view bytes) {
  if (failed_) return;
  const std::size_t room_in_field =
      form_.limits.field_bytes - (content_.size() - beginning_.back());
  const std::size_t room_in_record = form_.limits.record_bytes - content_.size();
  if (bytes.size() > room_in_field && room_in_field <= room_in_record) {
    return fail(fields_.back().place,
                "The field is longer than " + grouped(form_.limits.field_bytes) + " bytes.");
  }
  if (bytes.size() > room_in_record) {
    return fail(fields_.front().place,
                "The record is longer than " + grouped(form_.limits.record_bytes) + " bytes.");
  }
  content_.append(bytes);
}

/// Takes a separator (true) or the end of the record.
bool CsvReader::takeSeparator() {
  const int separator = take();
  if (separator == '\r' && peek() == '\n') take();
  if (separator == end_of_text && !utf8_.atBoundary()) fail(character_, std::string(not_utf8));
  return separator == separatorByte();
}

void CsvReader::endRecord() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const std::size_t end = i + 1 < fields_.size() ? beginning_[i + 1] : content_.size();
    fields_[i].text = std::string_view(content_).substr(beginning_[i], end - beginning_[i]);
  }
}

/// That a field without an end is too long as well helps nobody.
void CsvReader::failOpen(CsvPlace opened) {
  if (problem_.place == opened) failed_ = false;
  fail(opened, "The quote opened here is never closed; please add the closing quote.");
}

void CsvReader::fail(CsvPlace place, std::string message) {
  if (failed_) return;
  failed_ = true;
  problem_ = {place, std::move(message)};
}

}  // namespace depcalc
