#include "host/stored/copied_tables.h"

#include <set>
#include <string>

#include "host/unit_of_work.h"

namespace depcalc {
namespace {

RecordValues::Entries valuesOf(const HostFields& fields) {
  RecordValues::Entries values;
  for (std::string& name : fields.names()) {
    StoredValue value = fields.GetValue(name);
    values.push_back({std::move(name), std::move(value)});
  }
  return values;
}

void copyTables(StoredCompanyFile& from, StoredCompanyFile& to) {
  std::set<std::string> names;
  for (StoredCompanyFile* const file : {&from, &to}) {
    for (const std::string& name : file->tableNames()) names.insert(name);
  }
  for (const std::string& name : names) {
    const auto source = from.OpenTable(name);
    const auto target = to.OpenTable(name);
    for (std::int32_t index = 0; index <= INT16_MAX; ++index) copyRecord(*source, *target, index);
  }
}

}  // namespace

void putRecord(HostTable& table, std::int16_t index, const RecordValues::Entries& values) {
  const auto record = table.Add(index);
  for (const auto& [name, value] : values) record->Fields().SetValue(name, value);
  record->Modified(true);
  record->Commit();
}

void copyRecord(HostTable& from, HostTable& to, std::int32_t index) {
  const auto at = static_cast<std::int16_t>(index);
  if (to.Exists(at)) to.Item(at)->Delete();
  if (from.Exists(at)) putRecord(to, at, valuesOf(from.Item(at)->Fields()));
}

void copyCompany(StoredCompanyFile& from, StoredCompanyFile& to) {
  HostUnitOfWork& unit = *to.unitOfWork();
  unit.begin();
  try {
    to.info(from.info());
    copyTables(from, to);
  } catch (...) {
    unit.abandon();
    throw;
  }
  unit.end();
}

}  // namespace depcalc
