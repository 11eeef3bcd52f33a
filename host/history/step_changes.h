// What a step changed, record by record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/company_info.h"
#include "host/history/content.h"
#include "host/history/text_difference.h"

namespace depcalc {

/// A record before and after a step, in which it may have moved to another place of its table.
struct RecordChange {
  std::size_t table = 0;             ///< its place among the followed ones
  std::optional<std::int16_t> from;  ///< none: it came with the step
  std::optional<std::int16_t> to;    ///< none: it went
  std::string before;                ///< its text; "" where it was not there
  std::string after;
};

struct InfoChange {
  CompanyInfo before;
  CompanyInfo after;
};

struct StepChanges {
  std::optional<InfoChange> info;
  std::vector<RecordChange> records;
};

/// A place of a table whose record is not what it was.
struct ChangedPlace {
  std::optional<std::string> before;
  std::optional<std::string> after;
};
using ChangedPlaces = std::map<std::int16_t, ChangedPlace>;

/// Appends the changes of `places`, whose texts are taken. Where records went, those behind them
/// may have moved up by one, and are then known again.
void appendChanges(std::vector<RecordChange>& changes, std::size_t table, ChangedPlaces places);

/// As bytes, short where records are much alike before and after.
std::string bytesOfChanges(const StepChanges& changes, const std::vector<FollowedTable>& tables);

/// The text of a record that counts, in the state at hand; not there: an error.
using TextAt = std::function<std::string(std::size_t table, std::int16_t index)>;

/// The changes again, where the state at hand is the one of the other side than `missing`. Error 13
/// where they do not fit it.
StepChanges changesOfBytes(std::string_view bytes, Side missing, const TextAt& text_at);

/// What the changes take from a state's digest, and add to it.
std::uint64_t digestAfter(std::uint64_t before, const StepChanges& changes,
                          const std::vector<FollowedTable>& tables);
std::uint64_t digestBefore(std::uint64_t after, const StepChanges& changes,
                           const std::vector<FollowedTable>& tables);

}  // namespace depcalc
