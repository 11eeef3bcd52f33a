// Schedules of one file, calculated on several cores and written as by one.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "cli/asset_reader.h"
#include "cli/output.h"
#include "cli/schedule_writer.h"

namespace depcalc {

/// What rows become: the document and the messages about rows that cannot be used.
struct ScheduleRun {
  std::function<std::unique_ptr<ScheduleWriter>(Output&)> writer;
  std::function<std::string(const RowProblem&)> message;
  AssetRules rules;
  CsvForm form;
};

/// What came of the rows behind the header.
struct RowsWritten {
  bool all_good = true;     ///< every row became a schedule
  bool to_the_end = false;  ///< the document is whole
};

/// Writes a document of the rows that follow in `reader`, which has read its header from `source`,
/// by `jobs` threads: the same bytes in both outputs, in the same order, as by one. What a thread
/// made of a block of rows waits until those before it are there. There are a bounded number of
/// such parts, of three eighths of a mebibyte and an asset's own each, so that memory stays bounded
/// however slow the reader of `out` is. A record too long for a block leaves the rest of the text
/// to the thread that has it.
RowsWritten writeRows(const ScheduleRun& run, ByteSource& source, AssetReader& reader, int jobs,
                      Output& out, Output& errors);

}  // namespace depcalc
