// The formats in which schedules are written.
#pragma once

#include <memory>

#include "cli/output.h"
#include "cli/schedules.h"
#include "engine/calculate_dep.h"
#include "values/data_text.h"

namespace depcalc {

class ScheduleWriter {
 public:
  virtual ~ScheduleWriter() = default;
  virtual void begin() = 0;
  /// Several writers can share a document: each begins, what it writes of its beginning is dropped
  /// but for the first one's, and `between` stands where one's assets follow another's. The one
  /// that ends the document is told by `resume` that there are assets.
  [[nodiscard]] virtual std::string_view between() const { return ""; }
  virtual void resume() {}
  virtual void write(const CalculateDep& asset, const Schedules& schedules) = 0;
  virtual void end() = 0;
};

/// For people: a block per asset, the methods side by side with their totals.
std::unique_ptr<ScheduleWriter> tableWriter(Output& out);
/// Rows of id, method, fiscal year and amount; a last row per asset with the rate of production.
std::unique_ptr<ScheduleWriter> csvWriter(Output& out, CsvFields fields);
/// The same rows as objects, amounts as texts so that no reader rounds them.
std::unique_ptr<ScheduleWriter> jsonWriter(Output& out);

}  // namespace depcalc
