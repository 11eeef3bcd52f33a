// Tables that have their records' texts at hand.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace depcalc {

/// What a table may offer besides, for whoever wants a text of each record: none where it would
/// have to be made of the values.
class TableTexts {
 public:
  virtual ~TableTexts() = default;
  /// What `textOfRecord` (host/stored/record_text.h) makes of the record as it is committed. Not
  /// found: error 9.
  [[nodiscard]] virtual std::optional<std::string> recordText(std::int16_t index) const = 0;
};

}  // namespace depcalc
