// depcalc recalculate: all assets calculated anew.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "DepCalc/recalculation.h"
#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/options.h"
#include "cli/progress.h"
#include "cli/text_columns.h"
#include "values/data_text.h"
#include "values/display_format.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

using Row = std::array<std::string, 5>;

void writeCsv(const std::vector<ChangedAmount>& changes, Output& out) {
  const CsvFields fields(false);
  out.write("n,id,fiscal_year,before,after\n");
  for (const ChangedAmount& change : changes) {
    out.write(std::to_string(change.number) + ',' + fields.text(change.id) + ',' +
              (change.fiscal_year ? std::to_string(*change.fiscal_year) : "") + ',' +
              change.before.toFixed4() + ',' + change.after.toFixed4() + '\n');
  }
}

Row rowFor(const ChangedAmount& change) {
  if (!change.fiscal_year) {
    return {std::to_string(change.number), printableText(change.id), "Rate", change.before.toText(),
            change.after.toText()};
  }
  return {std::to_string(change.number), printableText(change.id),
          "FY" + std::to_string(*change.fiscal_year), formatMoney(change.before),
          formatMoney(change.after)};
}

void writeTable(const std::vector<ChangedAmount>& changes, Output& out) {
  std::vector<Row> rows{{"N", "Asset ID", "Year", "Before", "After"}};
  for (const ChangedAmount& change : changes) rows.push_back(rowFor(change));
  writeColumns(rows, {true, false, false, true, true}, out);
}

class RecalculateCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "recalculate"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Recalculate all assets of a company file";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc recalculate --dry-run workshop.company
      the amounts that would change, before and after
  depcalc recalculate --company-year workshop.company
      give all assets the company's fiscal year after it has changed
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return dry_run_; }

  void declareMore(Arguments& arguments) override {
    arguments.flag("--dry-run", dry_run_, "Do everything except save");
    arguments.flag("--company-year", company_year_,
                   "Give all assets the company's fiscal-year end (default: each keeps its own)");
    addFormatOption(arguments, format_, {"table", "csv"});
    arguments.footer(
        R"(Every asset is calculated by its method, as import does; one without a method has no amounts. An
asset that the entry form would refuse to calculate is named on standard error and left unchanged.
All the others are saved, or none if anything fails.
In csv, only the amounts that change are written: n,id,fiscal_year,before,after. The rate per unit
of production has no fiscal year.

Exit status: 0 success, 1 some assets were left unchanged or the file is damaged, 2 wrong usage,
3 the file cannot be read or written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    const Recalculation result =
        recalculated(company, company_year_ ? FiscalYearEnds::company : FiscalYearEnds::own);
    if (!dry_run_ && !save(company, result, surroundings)) return exit_system;
    write(result, surroundings.out);
    for (const LeftAsset& left : result.left) {
      complain(company,
               "Asset " + std::to_string(left.number) + ", " + quotedText(left.id) +
                   ", was left unchanged: " + left.reason,
               surroundings.errors);
    }
    return result.left.empty() ? exit_success : exit_bad_data;
  }

  static bool save(Company& company, const Recalculation& result, Surroundings& surroundings) {
    if (result.to_save.empty()) return true;
    std::optional<std::string> report;
    {
      Progress progress(surroundings.errors, "Saving assets", result.to_save.size(),
                        surroundings.now);
      report =
          saveRecalculation(company, result, [&](std::size_t saved) { progress.reached(saved); });
    }
    if (report) complain(company, *report + ". Nothing was changed.", surroundings.errors);
    return !report;
  }

  void write(const Recalculation& result, Output& out) const {
    if (format_ == OutputFormat::csv) return writeCsv(result.changes, out);
    if (!result.changes.empty()) writeTable(result.changes, out);
    const auto assets = static_cast<std::size_t>(result.calculated);
    out.write((dry_run_ ? "Would recalculate " : "Recalculated ") + counted(assets, "asset") +
              "; " + counted(result.changes.size(), "amount") +
              (dry_run_ ? " would change.\n" : " changed.\n"));
    if (result.moved > 0) {
      out.write(counted(static_cast<std::size_t>(result.moved), "asset") +
                (dry_run_ ? " would get" : " got") + " the company's fiscal-year end.\n");
    }
  }

  bool dry_run_ = false;
  bool company_year_ = false;
  OutputFormat format_ = OutputFormat::table;
};

}  // namespace

std::unique_ptr<Command> recalculateCommand() { return std::make_unique<RecalculateCommand>(); }

}  // namespace depcalc
