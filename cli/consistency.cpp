#include "cli/consistency.h"

#include <array>
#include <optional>
#include <utility>

#include "common/report_error.h"
#include "common/trapped.h"
#include "values/number_text.h"
#include "values/text.h"

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
  found.push_back("In " + recordName(index) + " RecIndex is " + (text.empty() ? "empty" : text) +
                  ".");
}

/// How the store saves an asset's values; its index is looked at above.
constexpr std::array<std::pair<std::string_view, StoredValue::Type>, 14> saved_types{
    {{"AID", StoredValue::Type::text},
     {"AName", StoredValue::Type::text},
     {"ASerial", StoredValue::Type::text},
     {"ADept", StoredValue::Type::text},
     {"AEnd", StoredValue::Type::date},
     {"ASale", StoredValue::Type::text},
     {"ABasis", StoredValue::Type::currency},
     {"AStart", StoredValue::Type::date},
     {"ASalvage", StoredValue::Type::currency},
     {"AProdCap", StoredValue::Type::text},
     {"DRecovery", StoredValue::Type::real},
     {"DConvention", StoredValue::Type::text},
     {"FYEnd", StoredValue::Type::date},
     {"DMethod", StoredValue::Type::text}}};

/// Whether `value` may stand under `name`. What was never set reads as nothing, and a blank in an
/// amount's place is the end of the amounts.
bool isSavedType(std::string_view name, const StoredValue& value) {
  using Type = StoredValue::Type;
  if (value.type() == Type::empty) return true;
  for (const auto& [saved_name, type] : saved_types) {
    if (equalIgnoringCase(name, saved_name)) return value.type() == type;
  }
  constexpr std::string_view amount = "Dep";
  const bool is_amount =
      name.size() > amount.size() && equalIgnoringCase(name.substr(0, amount.size()), amount) &&
      name.find_first_not_of("0123456789", amount.size()) == std::string_view::npos;
  return !is_amount || value.type() == Type::currency || value == StoredValue::text("");
}

void findWrongTypes(const HostFields& fields, std::int16_t index, std::vector<std::string>& found) {
  for (const std::string& name : fields.names()) {
    const StoredValue value = fields.GetValue(name);
    if (isSavedType(name, value)) continue;
    found.push_back("In " + recordName(index) + " " + name + " is of the type " +
                    std::string(value.typeName()) + ".");
  }
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
    findWrongTypes(record->Fields(), index, wrong_types);
  }
  found.insert(found.end(), wrong_types.begin(), wrong_types.end());
}

/// The summary of the assets as the store forms it; nothing, and a line, where it cannot.
bool sumUp(Company& company, std::vector<std::string>& found) {
  std::string report;
  const ErrorReportHook hook([&](std::string_view text) { report = text; });
  const bool done = trapped("Summary", [&] { company.store().sumUp(); });
  // Want of memory says nothing about the file.
  if (!done && (report.empty() || report.find("Error#7:") != std::string::npos)) {
    throw RuntimeError::outOfMemory();
  }
  if (!done) found.push_back("The assets cannot be summed up: " + report + ".");
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
    found.push_back("In the summary " + std::string(name) + " is " +
                    (empty ? "empty" : stored.asText()) + "; the assets make it " +
                    expected.asText() + ".");
  };
  // Before the first save the summary holds the fiscal-year end alone.
  const bool no_assets = table.Count() == 1;
  compare("Start", StoredValue::integer(company.state().StartYr), no_assets);
  compare("NumYears", StoredValue::real(company.state().NumYrs), no_assets);
}

}  // namespace

std::vector<std::string> wrongTypesIn(HostTable& table, std::int16_t index) {
  std::vector<std::string> found;
  findWrongTypes(table.Item(index)->Fields(), index, found);
  return found;
}

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
