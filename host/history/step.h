// One thing that a user did to a company.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace depcalc {

/// The numbers are those of the history file.
enum class StepKind : std::uint8_t {
  saved = 1,
  deleted = 2,
  imported = 3,
  disposed = 4,
  put_back = 5,  ///< the disposal taken back
  units = 6,
  recalculated = 7,
  company = 8,  ///< name, fiscal year or mode
  restored = 9,
  changed = 10,  ///< anything else
};
inline constexpr std::uint8_t last_step_kind = 10;

struct StepTitle {
  StepKind kind = StepKind::changed;
  std::string subject;     ///< what the asset is known by; "" where it is not about one
  std::int32_t count = 0;  ///< of the records that count

  friend bool operator==(const StepTitle&, const StepTitle&) = default;
};

struct Step {
  StepTitle title;
  std::int64_t when = 0;     ///< seconds since 1970, UTC
  std::uint64_t before = 0;  ///< digest of the state that it was done in
  std::uint64_t after = 0;   ///< and of the one that it led to
  std::string changes;       ///< host/history/step_changes.h

  friend bool operator==(const Step&, const Step&) = default;
};

std::string bytesOfStep(const Step& step);
/// Other bytes are error 13.
Step stepOfBytes(std::string_view bytes);

}  // namespace depcalc
