// The records of one data table of a company that is held in memory and written elsewhere.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/record_storage.h"
#include "host/stored/shared_text.h"

namespace depcalc {

/// A record's id is its table's id times this, plus its index.
inline constexpr std::int64_t records_per_table = 65'536;

/// A company has no more data tables. Their ids are 1 and up.
inline constexpr std::int64_t most_tables = 16;

/// Takes what a table writes, and says what goes wrong by exceptions.
class RecordSink {
 public:
  virtual ~RecordSink() = default;
  /// Adds or replaces a record. The text lives until the table changes.
  virtual void put(std::int64_t id, std::string_view text, std::uint64_t digest) = 0;
  virtual void remove(std::int64_t id) = 0;
};

/// Who must know before a table changes, and after.
class ChangeGate {
 public:
  virtual ~ChangeGate() = default;
  virtual void requireOpen() const = 0;
  /// Throws when nothing can be changed.
  virtual void beforeChange() = 0;
  /// Something waits to be written. May write it.
  virtual void afterChange() = 0;
};

/// A storage of records' texts.
using TextStorage = RecordStorageOf<SharedText>;

/// The table over `storage`.
std::shared_ptr<HostTable> tableOver(std::shared_ptr<TextStorage> storage);

/// All records in memory as the texts that the file has. What was changed waits until it is
/// written.
class StoredTable final : public TextStorage {
 public:
  /// Whether what waits can be undone without reading the file again. That takes memory for the
  /// texts of both.
  enum class Undo { by_reading, in_memory };

  StoredTable(std::string name, ChangeGate& gate, Undo undo = Undo::by_reading)
      : name_(std::move(name)), gate_(&gate), undo_(undo) {}

  [[nodiscard]] std::int32_t count() const override;
  [[nodiscard]] bool has(std::int16_t index) const override;
  [[nodiscard]] SharedText load(std::int16_t index) const override;
  [[nodiscard]] std::optional<std::string> text(std::int16_t index) const override;
  void save(std::int16_t index, SharedText text) override;
  void remove(std::int16_t index) override;

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] std::int64_t id() const { return id_; }  ///< 0 while the file does not have it
  void id(std::int64_t id) { id_ = id; }
  /// Records and the sum of their digests, as they were last read or written anywhere.
  [[nodiscard]] std::int64_t records() const { return count_; }
  [[nodiscard]] std::uint64_t tally() const { return tally_; }
  [[nodiscard]] bool waiting() const { return !waiting_.empty(); }

  /// Forgets everything, as before the first `read`.
  void clear();
  /// Takes a record from the file. False when the text is not what was written.
  bool read(std::int16_t index, std::string_view text, std::uint64_t digest);
  /// Writes what waits, or all there is. The caller has a transaction open; what it writes counts
  /// when it says so, and until then can be written again.
  enum class Extent { waiting, all };
  void write(RecordSink& sink, Extent extent);
  /// The transaction is in the file.
  void written() noexcept;
  /// Goes back to what the file has, where that is kept in memory.
  void undo() noexcept;

  [[nodiscard]] std::int64_t recordsInFile() const;
  /// Whether the file had this record when it was last read or written.
  [[nodiscard]] bool isInFile(std::int64_t index, std::string_view text,
                              std::uint64_t digest) const;

 private:
  struct Slot {
    bool present = false;
    bool waits = false;
    bool in_file = false;
    std::uint64_t digest = 0;          ///< of the text in the file
    std::uint64_t written_digest = 0;  ///< of the text that was written last
    SharedText text;
    SharedText file_text;  ///< of a record that waits, where it can be undone
  };

  [[nodiscard]] const Slot* find(std::int16_t index) const;
  Slot& change(std::int16_t index);
  [[nodiscard]] std::vector<std::int16_t> indexes(Extent extent) const;
  [[nodiscard]] std::uint64_t digest(std::int64_t index, std::string_view text) const;

  std::string name_;
  ChangeGate* gate_;
  Undo undo_;
  std::int64_t id_ = 0;
  std::vector<Slot> slots_;
  std::int32_t count_ = 0;
  std::uint64_t tally_ = 0;
  std::uint64_t file_tally_ = 0;  ///< that of the file
  std::vector<std::int16_t> waiting_;
};

}  // namespace depcalc
