// depcalc dump: the data tables as they are.
#include <memory>
#include <string>

#include "cli/arguments.h"
#include "cli/company.h"
#include "host/units_table.h"
#include "values/json_writer.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// The value in the form of its type. Money is a text, so that no reader rounds it.
JsonWriter& writeContent(const StoredValue& value, JsonWriter& json) {
  switch (value.type()) {
    case StoredValue::Type::empty:
      return json.null();
    case StoredValue::Type::integer:
      return json.number(value.get<std::int16_t>());
    case StoredValue::Type::real:
      return json.number(shortestNumberText(value.get<double>()));
    case StoredValue::Type::currency:
      return json.money(value.get<Currency>());
    case StoredValue::Type::date:
      return json.text(value.get<Date>().toIsoText());
    case StoredValue::Type::text:
      return json.text(value.get<std::string>());
  }
  return json;
}

void writeRecord(std::int32_t index, const HostFields& fields, JsonWriter& json) {
  json.beginObject().name("index").number(index).name("values").beginObject();
  for (const std::string& name : fields.names()) {
    const StoredValue value = fields.GetValue(name);
    json.name(name).beginObject().name("type").text(value.typeName()).name("value");
    writeContent(value, json).endObject();
  }
  json.endObject().endObject();
}

void writeRecords(HostTable& table, JsonWriter& json, Output& out) {
  json.beginArray(JsonWriter::Layout::below);
  const std::int32_t count = table.Count();
  std::int32_t written = 0;
  for (std::int32_t i = 0; written < count && i <= INT16_MAX; ++i) {
    const auto index = static_cast<std::int16_t>(i);
    if (!table.Exists(index)) continue;
    ++written;
    writeRecord(i, table.Item(index)->Fields(), json);
    out.write(json.take());
  }
  json.endArray();
}

class DumpCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "dump"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Write a company file's data tables as JSON";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc dump workshop.company > workshop.json
      every record with its values and their types
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    arguments.footer(
        R"(The types are Empty, Integer, Double, Currency (a string with four decimals), Date
(YYYY-MM-DD) and String. Record 0 summarizes the register; the others are the assets. Under
"units" are the units produced, by the numbers of their assets.
Exit status: 0 success, 1 the file is damaged, 2 wrong usage, 3 it cannot be read,
4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& out = surroundings.out;
    JsonWriter json;
    json.beginObject().name("table").text(asset_table_name).name("records");
    writeRecords(*company.file().OpenTable(asset_table_name), json, out);
    json.name("units");
    writeRecords(*company.file().OpenTable(units_table_name), json, out);
    json.endObject();
    out.write(json.take());
    return exit_success;
  }
};

}  // namespace

std::unique_ptr<Command> dumpCommand() { return std::make_unique<DumpCommand>(); }

}  // namespace depcalc
