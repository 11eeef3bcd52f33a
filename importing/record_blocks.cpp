#include "importing/record_blocks.h"

#include <algorithm>
#include <span>

namespace depcalc {
namespace {

constexpr std::string_view line_ends = "\r\n";

/// A carriage return and a line feed end one line.
std::size_t lineEnds(std::string_view text) {
  auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  for (auto at = text.find('\r'); at != std::string_view::npos; at = text.find('\r', at + 1)) {
    if (at + 1 == text.size() || text[at + 1] != '\n') ++count;
  }
  return count;
}

}  // namespace

std::size_t RecordEnds::wholeRecords(std::string_view text) {
  if (text.ends_with('\r')) text.remove_suffix(1);
  if ((in_ == In::beginning || in_ == In::plain) && text.find('"') == std::string_view::npos) {
    const auto last = text.find_last_of(line_ends);
    for (const char byte : text.substr(last == std::string_view::npos ? 0 : last)) take(byte);
    return last == std::string_view::npos ? 0 : last + 1;
  }
  std::size_t whole = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool may_end = in_ != In::quoted;
    take(text[at]);
    if (may_end && line_ends.find(text[at]) != std::string_view::npos) whole = at + 1;
  }
  return whole;
}

void RecordEnds::take(char byte) {
  if (in_ == In::quoted) {
    if (byte == '"') in_ = In::quote;
  } else if (byte == '"' && in_ != In::plain) {
    in_ = In::quoted;
  } else if (byte == separator_ || line_ends.find(byte) != std::string_view::npos) {
    in_ = In::beginning;
  } else {
    in_ = In::plain;
  }
}

RecordBlocks::RecordBlocks(ByteSource& source, char separator, std::string_view begun,
                           std::size_t line, bool exhausted, BlockSizes sizes)
    : source_(source),
      sizes_(sizes),
      ends_(separator),
      held_(begun),
      looked_at_(0),
      line_(line),
      exhausted_(exhausted) {}

bool RecordBlocks::next(Block& block) {
  block.is_open = false;
  while (!exhausted_ && (held_.size() < sizes_.usual || whole_ == 0) &&
         held_.size() < sizes_.largest) {
    fill();
  }
  if (unreadable_) {
    hand(block, whole_);
  } else {
    block.is_open = !exhausted_ && whole_ == 0;
    hand(block, exhausted_ || block.is_open ? held_.size() : whole_);
    exhausted_ = exhausted_ || block.is_open;
  }
  return !block.text.empty();
}

void RecordBlocks::fill() {
  const std::size_t before = held_.size();
  held_.resize(before + sizes_.usual);
  const auto count = source_.read(std::span(held_).subspan(before));
  held_.resize(before + count.value_or(0));
  unreadable_ = !count;
  exhausted_ = count.value_or(0) == 0;
  // A carriage return at the end is looked at again, with what follows it.
  const std::string_view fresh = std::string_view(held_).substr(looked_at_);
  if (const std::size_t whole = ends_.wholeRecords(fresh); whole != 0) whole_ = looked_at_ + whole;
  looked_at_ = held_.size() - (fresh.ends_with('\r') ? 1 : 0);
}

void RecordBlocks::hand(Block& block, std::size_t size) {
  block.text.assign(held_, 0, size);
  block.line = line_;
  line_ += lineEnds(block.text);
  held_.erase(0, size);
  looked_at_ -= std::min(looked_at_, size);
  whole_ = 0;
}

}  // namespace depcalc
