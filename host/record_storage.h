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
/// `Kept` is what is kept of a record's values.
template <typename Kept>
class RecordStorageOf {
 public:
  virtual ~RecordStorageOf() = default;

  [[nodiscard]] virtual std::int32_t count() const = 0;
  [[nodiscard]] virtual bool has(std::int16_t index) const = 0;
  [[nodiscard]] virtual Kept load(std::int16_t index) const = 0;
  /// `load` as the text that is at hand (host/table_texts.h), if one is.
  [[nodiscard]] virtual std::optional<std::string> text(std::int16_t /*index*/) const { return {}; }
  /// Replaces the record, or adds it.
  virtual void save(std::int16_t index, Kept values) = 0;
  virtual void remove(std::int16_t index) = 0;
};

using RecordStorage = RecordStorageOf<RecordValues>;

/// The table over `storage`.
std::shared_ptr<HostTable> tableOver(std::shared_ptr<RecordStorage> storage);

}  // namespace depcalc
