// What stands behind a data table: each host keeps its records in its own way, and the rules of
// tables and records are the same for all.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "host/host.h"
#include "host/record_values.h"

namespace depcalc {

/// The records of one table, by index. Operations on an index that is not there are not called.
class RecordStorage {
 public:
  virtual ~RecordStorage() = default;

  [[nodiscard]] virtual std::int32_t count() const = 0;
  [[nodiscard]] virtual bool has(std::int16_t index) const = 0;
  [[nodiscard]] virtual RecordValues load(std::int16_t index) const = 0;
  /// `load` as the text that is at hand (host/table_texts.h), if one is.
  [[nodiscard]] virtual std::optional<std::string> text(std::int16_t index) const;
  /// Replaces the record, or adds it.
  virtual void save(std::int16_t index, RecordValues values) = 0;
  virtual void remove(std::int16_t index) = 0;
};

/// The table over `storage`.
std::shared_ptr<HostTable> tableOver(std::shared_ptr<RecordStorage> storage);

}  // namespace depcalc
