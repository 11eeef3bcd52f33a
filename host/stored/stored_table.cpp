#include "host/stored/stored_table.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "host/storage_table.h"
#include "host/stored/digest.h"
#include "host/stored/record_in_text.h"

namespace depcalc {
namespace {

/// Records are mostly read one behind the other: the next one's text is brought near meanwhile.
void fetchAhead(std::string_view text) {
  constexpr std::size_t line = 64;
  constexpr std::size_t enough = 12 * line;
  for (std::size_t at = 0; at < std::min(enough, text.size()); at += line) {
    __builtin_prefetch(text.data() + at);
  }
}

}  // namespace

std::shared_ptr<HostTable> tableOver(std::shared_ptr<TextStorage> storage) {
  return std::make_shared<StorageTable<RecordInText>>(std::move(storage));
}

const StoredTable::Slot* StoredTable::find(std::int16_t index) const {
  gate_->requireOpen();
  const auto at = static_cast<std::size_t>(index);
  return index >= 0 && at < slots_.size() && slots_[at].present ? &slots_[at] : nullptr;
}

std::int32_t StoredTable::count() const {
  gate_->requireOpen();
  return count_;
}

bool StoredTable::has(std::int16_t index) const { return find(index) != nullptr; }

SharedText StoredTable::load(std::int16_t index) const {
  const auto next = static_cast<std::size_t>(index) + 1;
  if (next < slots_.size()) fetchAhead(slots_[next].text.view());
  return find(index)->text;
}

std::optional<std::string> StoredTable::text(std::int16_t index) const {
  return std::string(find(index)->text.view());
}

StoredTable::Slot& StoredTable::change(std::int16_t index) {
  gate_->beforeChange();
  const auto at = static_cast<std::size_t>(index);
  if (at >= slots_.size()) slots_.resize(at + 1);
  Slot& slot = slots_[at];
  if (!slot.waits) waiting_.push_back(index);
  if (!slot.waits && undo_ == Undo::in_memory) slot.file_text = std::move(slot.text);
  slot.waits = true;
  return slot;
}

void StoredTable::save(std::int16_t index, SharedText text) {
  Slot& slot = change(index);
  if (!std::exchange(slot.present, true)) ++count_;
  slot.text = std::move(text);
  gate_->afterChange();
}

void StoredTable::remove(std::int16_t index) {
  Slot& slot = change(index);
  slot.present = false;
  --count_;
  slot.text = {};
  gate_->afterChange();
}

void StoredTable::clear() {
  id_ = 0;
  slots_.clear();
  count_ = 0;
  tally_ = file_tally_ = 0;
  waiting_.clear();
}

bool StoredTable::read(std::int16_t index, std::string_view text, std::uint64_t digest) {
  const auto at = static_cast<std::size_t>(index);
  if (at >= slots_.size()) slots_.resize(at + 1);
  Slot& slot = slots_[at];
  slot.present = slot.in_file = true;
  slot.digest = digest;
  slot.text = SharedText(text);
  ++count_;
  tally_ = file_tally_ += digest;
  return digest == this->digest(index, text);
}

std::uint64_t StoredTable::digest(std::int64_t index, std::string_view text) const {
  return digestOf(text, static_cast<std::uint64_t>(id_ * records_per_table + index));
}

std::int64_t StoredTable::recordsInFile() const {
  return std::count_if(slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.in_file; });
}

bool StoredTable::isInFile(std::int64_t index, std::string_view text, std::uint64_t digest) const {
  const auto at = static_cast<std::size_t>(index);
  return at < slots_.size() && slots_[at].in_file && slots_[at].digest == digest &&
         this->digest(index, text) == digest;
}

std::vector<std::int16_t> StoredTable::indexes(Extent extent) const {
  std::vector<std::int16_t> indexes = waiting_;
  if (extent == Extent::all) {
    indexes.resize(slots_.size());
    std::iota(indexes.begin(), indexes.end(), std::int16_t{0});
  }
  std::sort(indexes.begin(), indexes.end());
  return indexes;
}

void StoredTable::write(RecordSink& sink, Extent extent) {
  tally_ = file_tally_;
  for (const std::int16_t index : indexes(extent)) {
    Slot& slot = slots_[static_cast<std::size_t>(index)];
    const std::int64_t id = id_ * records_per_table + index;
    if (slot.in_file) tally_ -= slot.digest;
    if (slot.present) {
      slot.written_digest = digest(index, slot.text.view());
      tally_ += slot.written_digest;
      sink.put(id, slot.text.view(), slot.written_digest);
    } else if (slot.in_file) {
      sink.remove(id);
    }
  }
}

void StoredTable::written() noexcept {
  for (const std::int16_t index : waiting_) {
    Slot& slot = slots_[static_cast<std::size_t>(index)];
    slot.in_file = slot.present;
    slot.digest = slot.written_digest;
    slot.waits = false;
    slot.file_text = {};
  }
  file_tally_ = tally_;
  waiting_.clear();
}

void StoredTable::undo() noexcept {
  for (const std::int16_t index : waiting_) {
    Slot& slot = slots_[static_cast<std::size_t>(index)];
    count_ += (slot.in_file ? 1 : 0) - (slot.present ? 1 : 0);
    slot.present = slot.in_file;
    slot.text = std::move(slot.file_text);
    slot.waits = false;
  }
  tally_ = file_tally_;
  waiting_.clear();
}

}  // namespace depcalc
