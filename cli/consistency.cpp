#include "cli/consistency.h"

#include <optional>

#include "DepCalc/saved_types.h"
#include "common/heard_reports.h"
#include "common/trapped.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

std::string recordName(std::int32_t index) { return "record " + std::to_string(index); }

void findGaps(const HostTable& table, std::vector<std::string>& found) {
  const std::int32_t count = table.Count();
  std::int32_t missing = 0;
  std::int32_t first = 0;
  for (std::int32_t i = 0; i < count && i <= INT16_MAX; ++i) {
    if (table.Exists(static_cast<std::int16_t>(i))) continue;
    if (missing++ == 0) first = i;
  }
  if (missing == 0) return;
  found.push_back("The table holds " + std::to_string(count) + " records, but " +
                  recordName(first) + " is missing.");
}

void findStrangeIndex(const HostFields& fields, std::int16_t index,
                      std::vector<std::string>& found) {
  const StoredValue stored = fields.GetValue("RecIndex");
  if (stored == StoredValue::integer(index)) return;
  const std::string text = stored.asText();
  found.push_back("In " + recordName(index) + ", RecIndex is " + (text.empty() ? "empty" : text) +
                  ".");
}

/// Every record is fetched once; all the indices are told before the types.
void findInAssets(HostTable& table, std::vector<std::string>& found) {
  std::vector<std::string> wrong_types;
  const std::int32_t count = table.Count();
  for (std::int32_t i = 1; i < count && i <= INT16_MAX; ++i) {
    const auto index = static_cast<std::int16_t>(i);
    if (!table.Exists(index)) continue;
    const auto record = table.Item(index);
    findStrangeIndex(record->Fields(), index, found);
    const auto wrong = wrongTypesOf(record->Fields(), index);
    wrong_types.insert(wrong_types.end(), wrong.begin(), wrong.end());
  }
  found.insert(found.end(), wrong_types.begin(), wrong_types.end());
}

/// The summary of the assets as the store forms it; nothing, and a line, where it cannot.
bool sumUp(Company& company, std::vector<std::string>& found) {
  const HeardReports heard;
  const bool done = trapped("Summary", [&] { company.store().sumUp(); });
  // Want of memory says nothing about the file.
  if (!done && (heard.last().empty() || heard.ofMemory())) {
    throw RuntimeError::outOfMemory();
  }
  if (!done) found.push_back("The assets cannot be summarized: " + heard.last() + ".");
  return done;
}

void compareSummary(Company& company, HostTable& table, std::vector<std::string>& found) {
  if (!sumUp(company, found)) return;
  const auto info = table.Item(0);
  const auto compare = [&](const char* name, const StoredValue& expected, bool may_be_empty) {
    const StoredValue stored = info->Fields().GetValue(name);
    if (stored == expected) return;
    const bool empty = stored.type() == StoredValue::Type::empty;
    if (empty && may_be_empty) return;
    found.push_back("In the summary, " + std::string(name) + " is " +
                    (empty ? "empty" : stored.asText()) +
                    "; according to the assets it should be " + expected.asText() + ".");
  };
  // Before the first save the summary holds the fiscal-year end alone.
  const bool no_assets = table.Count() == 1;
  compare("Start", StoredValue::integer(company.state().StartYr), no_assets);
  compare("NumYears", StoredValue::real(company.state().NumYrs), no_assets);
}

}  // namespace

std::vector<std::string> inconsistenciesOf(Company& company) {
  std::vector<std::string> found;
  const auto table = company.file().OpenTable(asset_table_name);
  findGaps(*table, found);
  const bool dense = found.empty();
  findInAssets(*table, found);
  if (dense && table->Count() > 0) compareSummary(company, *table, found);
  return found;
}

}  // namespace depcalc
