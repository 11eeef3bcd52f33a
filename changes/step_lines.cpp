#include "changes/step_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "changes/company_steps.h"
#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "engine/method.h"
#include "host/stored/record_text.h"
#include "values/display_format.h"
#include "values/en_us.h"
#include "values/number_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

using Caption = std::string;
/// What is shown of a record, in its order; what says nothing is missing.
using Shown = std::vector<std::pair<Caption, std::string>>;

constexpr std::array<std::pair<std::string_view, std::string_view>, 14> captions{
    {{"AID", "Asset ID"},
     {"AName", "Name"},
     {"ASerial", "Serial #"},
     {"ADept", "Dept/Loc"},
     {"AStart", "Placed-in-service Date"},
     {"ABasis", "Basis"},
     {"ASalvage", "Salvage Value"},
     {"AProdCap", "Production Capacity"},
     {"DConvention", "Convention"},
     {"DRecovery", "Useful Life"},
     {"DMethod", "Method"},
     {"FYEnd", "Fiscal Year End"},
     {"AEnd", "Disposal Date"},
     {"ASale", "Proceeds"}}};

std::string methodName(std::string_view code) {
  const auto found = std::find_if(methods.begin(), methods.end(),
                                  [code](const Method& method) { return method.code == code; });
  return std::string(found == methods.end() ? code : found->name);
}

/// A value of another type than the calculator saves is shown as it is.
std::string shownText(std::string_view name, const StoredValue& value) {
  using Type = StoredValue::Type;
  if (value.type() == Type::currency) return formatExactMoney(value.get<Currency>());
  if (value.type() == Type::date) {
    return value.get<Date>().isNone() ? std::string() : value.get<Date>().toText();
  }
  if (value.type() != Type::text) return value.asText();
  if (name == "DConvention") return std::string(conventionName(value.asText()));
  return name == "DMethod" ? methodName(value.asText()) : value.asText();
}

StoredValue valueOf(const RecordValues& values, std::string_view name) {
  const StoredValue* const found = values.find(name);
  return found == nullptr ? StoredValue() : *found;
}

/// The number behind `prefix` in a value's name.
std::optional<int> numberIn(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix)) return std::nullopt;
  name.remove_prefix(prefix.size());
  int number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  const bool whole = error == std::errc() && end == name.data() + name.size();
  return whole ? std::optional(number) : std::nullopt;
}

/// The schedule's amounts, by fiscal year; a rate alone by none.
void addAmounts(const RecordValues& values, Shown& shown) {
  const StoredValue start = valueOf(values, "AStart");
  const StoredValue end = valueOf(values, "FYEnd");
  const StoredValue life = valueOf(values, "DRecovery");
  if (start.type() != StoredValue::Type::date || end.type() != StoredValue::Type::date) return;
  const bool rate = isUnitsOfProduction(valueOf(values, "DMethod").asText());
  const double last = rate || life.type() != StoredValue::Type::real ? 0 : life.get<double>();
  const int first_year = firstFiscalYear(start.get<Date>(), end.get<Date>());
  for (const RecordValues::Entry& entry : values.entries()) {
    const auto year = numberIn(entry.name, "Dep");
    const bool amount = entry.value.type() == StoredValue::Type::currency;
    if (!year || !amount || *year > last || entry.value == StoredValue::currency({})) continue;
    if (rate) {
      shown.emplace_back("Unit of Production Rate", formatRate(entry.value.get<Currency>()));
    } else {
      shown.emplace_back("FY" + std::to_string(first_year + *year),
                         shownText(entry.name, entry.value));
    }
  }
}

Shown shownOfAsset(const RecordValues& values) {
  Shown shown;
  for (const auto& [name, caption] : captions) {
    std::string text = shownText(name, valueOf(values, name));
    // Where nothing was entered the form has it as 0.
    const bool none = text.empty() || (text == "0" && (name == "AProdCap" || name == "ASale"));
    if (!none) shown.emplace_back(caption, std::move(text));
  }
  addAmounts(values, shown);
  return shown;
}

Shown shownOfUnits(const RecordValues& values) {
  Shown shown;
  for (const RecordValues::Entry& entry : values.entries()) {
    if (const auto year = numberIn(entry.name, "FY")) {
      shown.emplace_back("Units Produced, FY" + std::to_string(*year), entry.value.asText());
    }
  }
  return shown;
}

Shown shownOfCompany(const CompanyInfo& info) {
  const auto month = static_cast<std::size_t>(info.first_month - 1);
  return {{"Name", info.name},
          {"First Month of Fiscal Year", std::string(en_us::month_names.at(month))},
          {"Mode", info.multi_user ? "Multi-user" : "Single-user"}};
}

std::string textIn(const Shown& shown, const Caption& caption) {
  const auto found = std::find_if(shown.begin(), shown.end(),
                                  [&](const auto& each) { return each.first == caption; });
  return found == shown.end() ? std::string() : found->second;
}

void addLines(const std::string& about, const Shown& before, const Shown& after,
              std::vector<StepLine>& lines) {
  const auto add = [&](const Caption& caption) {
    StepLine line{about, caption, textIn(before, caption), textIn(after, caption)};
    if (line.before != line.after) lines.push_back(std::move(line));
  };
  for (const auto& [caption, text] : after) add(caption);
  for (const auto& [caption, text] : before) {
    if (textIn(after, caption).empty()) add(caption);
  }
}

Shown shownSide(const RecordChange& change, const std::optional<std::int16_t>& place,
                const std::string& text) {
  if (!place) return {};
  const RecordValues values = recordOfText(text);
  return change.table == followed_units ? shownOfUnits(values) : shownOfAsset(values);
}

std::int16_t indexOf(const RecordChange& change) { return change.to ? *change.to : *change.from; }

}  // namespace

StepLines stepLines(const StepChanges& changes, std::size_t most_lines) {
  StepLines result;
  if (changes.info) {
    addLines("Company", shownOfCompany(changes.info->before), shownOfCompany(changes.info->after),
             result.lines);
  }
  std::vector<const RecordChange*> records;
  for (const RecordChange& change : changes.records) {
    if (indexOf(change) > 0) records.push_back(&change);
  }
  std::stable_sort(records.begin(), records.end(), [](const auto* one, const auto* other) {
    return std::pair(one->table, indexOf(*one)) < std::pair(other->table, indexOf(*other));
  });
  for (const RecordChange* const change : records) {
    if (result.lines.size() >= most_lines) {
      ++result.left_out;
      continue;
    }
    addLines(nameOfRecord(*change), shownSide(*change, change->from, change->before),
             shownSide(*change, change->to, change->after), result.lines);
  }
  return result;
}

}  // namespace depcalc
