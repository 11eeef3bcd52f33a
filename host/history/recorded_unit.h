// What the recorder's tables tell it of the unit of work that is open.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/company_info.h"
#include "host/history/recorder.h"

namespace depcalc {

struct Recorder::Unit {
  int depth = 0;
  /// Something was changed, and what it was before is not known.
  bool unrecorded = false;
  std::optional<CompanyInfo> info_before;
  /// By the followed tables' places; a record that was not there has none.
  std::vector<std::map<std::int16_t, std::optional<std::string>>> before;

  /// Record `index` is about to change. What a change is to be remembered by never keeps it from
  /// being made.
  void touch(std::size_t place, HostTable& table, std::int16_t index) noexcept {
    if (unrecorded || before[place].contains(index)) return;
    try {
      if (depth == 0) throw RuntimeError::invalidCall();
      std::optional<std::string> text;
      if (table.Exists(index)) text = recordTextIn(table, index);
      before[place].emplace(index, std::move(text));
    } catch (...) {
      unrecorded = true;
    }
  }
  void clear() noexcept {
    for (auto& records : before) records.clear();
    info_before.reset();
    unrecorded = false;
  }
};

}  // namespace depcalc
