#include "importing/record_blocks.h"

#include <algorithm>
#include <span>
#include <utility>

namespace depcalc {
namespace {

constexpr std::size_t portion = 65'536;  // what is read at a time

bool isLineEnd(char byte) { return byte == '\n' || byte == '\r'; }

/// A carriage return and a line feed end one line.
std::size_t lineEnds(std::string_view text) {
  std::size_t count = 0;
  for (auto at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
    ++count;
  }
  for (auto at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
    if (at + 1 == text.size() || text[at + 1] != '\n') ++count;
  }
  return count;
}

}  // namespace

bool RecordEnds::endsField(char byte) const { return byte == separator_ || isLineEnd(byte); }

std::size_t RecordEnds::wholeRecords(std::string_view text) {
  if (text.ends_with('\r')) text.remove_suffix(1);
  std::size_t whole = 0;
  for (std::size_t at = 0; at < text.size();) {
    at = in_ == In::quoted ? takeQuoted(text, at) : takeUnquoted(text, at, whole);
  }
  return whole;
}

/// Up to the quote that opens a field, which is looked for first; a line end counts unless it is
/// followed by another in the same stretch.
std::size_t RecordEnds::takeUnquoted(std::string_view text, std::size_t at, std::size_t& whole) {
  // A quote behind the one that seemed to close the field goes on with it.
  const bool goes_on = in_ == In::quote && text[at] == '"';
  const auto opens = [&](std::size_t quote) {
    return quote == at ? in_ == In::beginning || goes_on : endsField(text[quote - 1]);
  };
  std::size_t quote = text.find('"', at);
  while (quote != std::string_view::npos && !opens(quote)) quote = text.find('"', quote + 1);
  const std::string_view stretch = text.substr(at, quote - at);
  const auto last = std::find_if(stretch.rbegin(), stretch.rend(), isLineEnd);
  if (last != stretch.rend()) whole = at + static_cast<std::size_t>(stretch.rend() - last);
  if (quote != std::string_view::npos) {
    in_ = In::quoted;
    return quote + 1;
  }
  in_ = endsField(stretch.back()) ? In::beginning : In::plain;
  return text.size();
}

std::size_t RecordEnds::takeQuoted(std::string_view text, std::size_t at) {
  const std::size_t quote = text.find('"', at);
  if (quote == std::string_view::npos) return text.size();
  in_ = In::quote;
  return quote + 1;
}

RecordBlocks::RecordBlocks(ByteSource& source, char separator, std::string_view begun,
                           std::size_t line, bool exhausted, BlockSizes sizes)
    : source_(source),
      sizes_(sizes),
      ends_(separator),
      held_(begun),
      line_(line),
      exhausted_(exhausted) {}

bool RecordBlocks::next(Block& block) {
  while ((looked_at_ < sizes_.usual || whole_ == 0) && looked_at_ < sizes_.largest) {
    if (!allLookedAt()) {
      look();
    } else if (!exhausted_) {
      fill();
    } else {
      break;
    }
  }
  block.is_open = !exhausted_ && whole_ == 0;
  const bool is_rest = whole_ == 0 || (exhausted_ && allLookedAt());
  hand(block, is_rest && !unreadable_ ? held_.size() - begin_ : whole_);
  exhausted_ = exhausted_ || block.is_open;
  return !block.text.empty();
}

std::string_view RecordBlocks::fresh() const {
  return std::string_view(held_).substr(begin_ + looked_at_);
}

/// A carriage return at the end is looked at with what follows it.
bool RecordBlocks::allLookedAt() const { return fresh().empty() || fresh() == "\r"; }

void RecordBlocks::look() {
  std::string_view text = fresh().substr(0, sizes_.usual);
  if (text.ends_with('\r')) text = fresh().substr(0, text.size() + 1);
  if (const std::size_t whole = ends_.wholeRecords(text); whole != 0) whole_ = looked_at_ + whole;
  looked_at_ += text.size() - (text.ends_with('\r') ? 1 : 0);
}

void RecordBlocks::fill() {
  held_.erase(0, std::exchange(begin_, 0));
  const std::size_t before = held_.size();
  held_.resize(before + portion);
  const auto count = source_.read(std::span(held_).subspan(before));
  held_.resize(before + count.value_or(0));
  unreadable_ = !count;
  exhausted_ = count.value_or(0) == 0;
}

void RecordBlocks::hand(Block& block, std::size_t size) {
  block.text.assign(held_, begin_, size);
  block.line = line_;
  line_ += lineEnds(block.text);
  begin_ += size;
  looked_at_ -= std::min(looked_at_, size);
  whole_ = 0;
}

}  // namespace depcalc
