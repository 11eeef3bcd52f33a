// depcalc units: what assets by units of production have produced.
#include <array>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "changes/entering_units.h"
#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/options.h"
#include "cli/text_columns.h"
#include "values/data_text.h"
#include "values/display_format.h"
#include "values/json_writer.h"
#include "values/number_text.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

using Row = std::array<std::string, 4>;

/// One year's units of one asset, as texts.
std::vector<Row> allUnits(Company& company, std::int32_t only) {
  std::vector<Row> rows;
  for (const std::int32_t number : company.units().numbers()) {
    if (only != 0 && number != only) continue;
    const auto entry = company.units().entry(number);
    for (const auto& [year, units] : entry->units) {
      rows.push_back(
          {std::to_string(number), entry->id, std::to_string(year), numberToText(units)});
    }
  }
  return rows;
}

void writeCsv(const std::vector<Row>& rows, Output& out) {
  const CsvFields fields(false);
  out.write("n,id,fiscal_year,units\n");
  for (const auto& [n, id, year, units] : rows) {
    std::string line = n;
    line.append(",").append(fields.text(id)).append(",").append(year);
    line.append(",").append(units).append("\n");
    out.write(line);
  }
}

void writeJson(const std::vector<Row>& rows, Output& out) {
  JsonWriter json;
  json.beginArray(JsonWriter::Layout::below);
  for (const auto& [n, id, year, units] : rows) {
    json.beginObject().name("n").number(n).name("id").text(id);
    json.name("fiscal_year").number(year).name("units").text(units).endObject();
  }
  json.endArray();
  out.write(json.take());
}

void writeTable(std::vector<Row> rows, Output& out) {
  for (Row& row : rows) row = {row[0], printableText(row[1]), "FY" + row[2], row[3]};
  rows.insert(rows.begin(), Row{"N", "Asset ID", "Year", "Units"});
  writeColumns(rows, {true, false, false, true}, out);
}

class UnitsCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "units"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Enter or list the units that assets have produced";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc units workshop.company 3 --year 2026 --units 12500
      what the third asset produced in the fiscal year that ends in 2026
  depcalc units workshop.company 3 --year 2026 --clear
      take that entry away
  depcalc units --format csv workshop.company
      all entries, for another program
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return units_.empty() && !clear_; }

  void declareMore(Arguments& arguments) override {
    const Argument number = addAssetNumber(arguments, number_);
    const Argument year =
        arguments
            .option("--year YEAR", year_, "The fiscal year, by the calendar year in which it ends")
            .range(1, 9999, ToldLimits::only_when_passed)
            .needs(number);
    const Argument units =
        arguments.option("--units UNITS", units_, "The units produced in that year").needs(year);
    arguments
        .flag("--clear", clear_, "Take that year's entry away; without --year, the asset's entries")
        .needs(number)
        .excludes(units);
    addFormatOption(arguments, format_);
    arguments.footer(
        R"(Units are entered for assets by Units of Production, from 0 to 999,999,999,999, for fiscal years from
the asset's first on. Columns in csv: n,id,fiscal_year,units.

Exit status: 0 success, 1 they were refused or the file is damaged, 2 wrong usage, 3 the file cannot be
read or written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    if (year_ != 0 && onlyReads()) {
      errors.write(
          "depcalc: Please give --units or --clear.\nRun with --help for more information.\n");
      return exit_usage;
    }
    if (!hasAsset(company, number_, errors)) return exit_bad_data;
    if (onlyReads()) return list(company, surroundings.out);
    return clear_ ? clear(company, surroundings) : enter(company, surroundings);
  }

  ExitStatus list(Company& company, Output& out) const {
    const std::vector<Row> rows = allUnits(company, number_);
    if (format_ == OutputFormat::csv) {
      writeCsv(rows, out);
    } else if (format_ == OutputFormat::json) {
      writeJson(rows, out);
    } else {
      writeTable(rows, out);
    }
    return exit_success;
  }

  ExitStatus enter(Company& company, Surroundings& surroundings) const {
    const SavedAsset asset = savedAsset(company, number_);
    const auto entered = unitsFrom(units_);
    const auto* const unusable = std::get_if<std::string>(&entered);
    for (const auto& refusal :
         {refusedUnits(asset), foreignUnits(company, number_), refusedUnitsYear(asset, year_),
          unusable != nullptr ? std::optional(*unusable) : std::nullopt}) {
      if (refusal) return refuse(company, number_, *refusal, surroundings.errors);
    }
    UnitsByYear units = asset.units;
    units[year_] = std::get<double>(entered);
    if (!save(company, units, surroundings)) return exit_system;
    writeYear(asset, units, surroundings.out);
    return exit_success;
  }

  ExitStatus clear(Company& company, Surroundings& surroundings) const {
    const auto entry = company.units().entry(number_);
    UnitsByYear units = entry ? entry->units : UnitsByYear();
    const bool all = year_ == 0;
    if (all ? units.empty() : !units.contains(year_)) {
      return refuse(
          company, number_,
          all ? "It has no units." : "It has no units in FY" + std::to_string(year_) + ".",
          surroundings.errors);
    }
    if (!all) {
      if (const auto refusal = foreignUnits(company, number_)) {
        return refuse(company, number_, *refusal, surroundings.errors);
      }
    }
    all ? units.clear() : static_cast<void>(units.erase(year_));
    if (!save(company, units, surroundings)) return exit_system;
    surroundings.out.write("Cleared the units of asset " + std::to_string(number_) +
                           (all ? ".\n" : " in FY" + std::to_string(year_) + ".\n"));
    return exit_success;
  }

  void writeYear(const SavedAsset& asset, const UnitsByYear& units, Output& out) const {
    for (const UnitsRow& row : unitsRows(asset, units, year_)) {
      if (row.year != year_) continue;
      out.write(
          "Asset " + std::to_string(number_) + ", " + quotedText(asset.id) + ", FY" +
          std::to_string(year_) + ": " + numberToText(*row.units) + " units, depreciation " +
          formatMoney(row.amount) + ", " + numberToText(row.left < 0 ? -row.left : row.left) +
          (row.left < 0 ? " units more than the capacity.\n" : " units of the capacity left.\n"));
    }
  }

  [[nodiscard]] bool save(Company& company, const UnitsByYear& units,
                          Surroundings& surroundings) const {
    return isSaved(company, saveUnits(company, number_, units), surroundings.errors);
  }

  std::int32_t number_ = 0;
  int year_ = 0;  ///< 0 for none
  std::string units_;
  bool clear_ = false;
  OutputFormat format_ = OutputFormat::table;
};

}  // namespace

std::unique_ptr<Command> unitsCommand() { return std::make_unique<UnitsCommand>(); }

}  // namespace depcalc
