#include "DepCalc/units_store.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "DepCalc/asset_store.h"

namespace depcalc {
namespace {

using Marks = UnitsStore::Marks;

/// What an asset is known again by, under the names that it is saved with.
constexpr std::array<std::string_view, 5> mark_names{"AID", "AName", "ASerial", "AStart", "ABasis"};

constexpr std::string_view year_prefix = "FY";

std::string yearName(int year) { return std::string(year_prefix) + std::to_string(year); }

/// Of a name that `yearName` gave; other values are no units.
std::optional<int> yearNamed(std::string_view name) {
  if (!name.starts_with(year_prefix)) return std::nullopt;
  name.remove_prefix(year_prefix.size());
  int year = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), year);
  const bool whole = error == std::errc() && end == name.data() + name.size();
  return whole ? std::optional(year) : std::nullopt;
}

std::int16_t indexOf(std::int32_t number) { return static_cast<std::int16_t>(number); }

bool isThere(const HostTable& table, std::int32_t number) {
  return number >= 1 && number <= INT16_MAX && table.Exists(indexOf(number));
}

Marks marksIn(const HostFields& fields) {
  Marks marks;
  for (const std::string_view name : mark_names) marks.push_back(fields.GetValue(name));
  return marks;
}

void setMarks(HostFields& fields, const Marks& marks) {
  for (std::size_t i = 0; i < mark_names.size(); ++i) fields.SetValue(mark_names[i], marks[i]);
}

UnitsByYear unitsIn(const HostFields& fields) {
  UnitsByYear units;
  for (const std::string& name : fields.names()) {
    const StoredValue value = fields.GetValue(name);
    const auto year = yearNamed(name);
    if (year && value.type() == StoredValue::Type::real) units[*year] = value.get<double>();
  }
  return units;
}

void remove(HostTable& table, std::int32_t number) {
  const auto record = table.Item(indexOf(number));
  record->BeginEdit();
  record->Delete();
}

template <typename Fill>
void add(HostTable& table, std::int32_t number, Fill&& fill) {
  const auto record = table.Add(indexOf(number));
  record->BeginEdit();
  std::forward<Fill>(fill)(record->Fields());
  record->Modified(true);
  record->Commit();
}

/// The record as it is, in another place, which is free.
void move(HostTable& table, std::int32_t from, std::int32_t to) {
  const auto record = table.Item(indexOf(from));
  add(table, to, [&](HostFields& fields) {
    for (const std::string& name : record->Fields().names()) {
      fields.SetValue(name, record->Fields().GetValue(name));
    }
  });
  remove(table, from);
}

}  // namespace

std::shared_ptr<HostTable> UnitsStore::units() const { return file_->OpenTable(units_table_name); }

std::vector<std::int32_t> UnitsStore::numbers() const {
  const auto table = units();
  const auto count = static_cast<std::size_t>(table->Count());
  std::vector<std::int32_t> numbers;
  for (std::int32_t i = 1; numbers.size() < count && i <= INT16_MAX; ++i) {
    if (table->Exists(indexOf(i))) numbers.push_back(i);
  }
  return numbers;
}

bool UnitsStore::has(std::int32_t number) const { return isThere(*units(), number); }

std::optional<UnitsEntry> UnitsStore::entry(std::int32_t number) const {
  const auto table = units();
  if (!isThere(*table, number)) return std::nullopt;
  const auto record = table->Item(indexOf(number));
  const HostFields& fields = record->Fields();
  return UnitsEntry{.number = number,
                    .id = fields.GetValue(mark_names.front()).asText(),
                    .units = unitsIn(fields),
                    .known = marksIn(fields) == marksOfAsset(number)};
}

UnitsByYear UnitsStore::unitsOf(std::int32_t number) const {
  const auto found = entry(number);
  return found && found->known ? found->units : UnitsByYear();
}

void UnitsStore::put(std::int32_t number, const UnitsByYear& units) {
  const auto table = this->units();
  if (isThere(*table, number)) remove(*table, number);
  if (units.empty()) return;
  add(*table, number, [&](HostFields& fields) {
    setMarks(fields, marksOfAsset(number));
    for (const auto& [year, count] : units) {
      fields.SetValue(yearName(year), StoredValue::real(count));
    }
  });
}

void UnitsStore::assetDeleted(std::int32_t number) {
  const auto table = units();
  for (const std::int32_t each : numbers()) {
    if (each == number) remove(*table, each);
    if (each > number) move(*table, each, each - 1);
  }
}

Marks UnitsStore::marksOfAsset(std::int32_t number) const {
  const auto assets = file_->OpenTable(asset_table_name);
  if (!isThere(*assets, number)) return {};
  return marksIn(assets->Item(indexOf(number))->Fields());
}

void UnitsStore::assetSaved(std::int32_t number, const Marks& before) {
  const Marks now = marksOfAsset(number);
  const auto table = units();
  if (now == before || now.empty() || !isThere(*table, number)) return;
  const auto record = table->Item(indexOf(number));
  if (marksIn(record->Fields()) != before) return;
  record->BeginEdit();
  setMarks(record->Fields(), now);
  record->Modified(true);
  record->Commit();
}

}  // namespace depcalc
