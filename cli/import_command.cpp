// depcalc import: the assets of a CSV file into the register.
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cli/company.h"
#include "cli/importer.h"
#include "cli/input_file.h"
#include "cli/printable_text.h"
#include "cli/progress.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

std::string assetsText(std::size_t count) {
  return formatWhole(static_cast<double>(count)) + (count == 1 ? " asset" : " assets");
}

class ImportCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "import"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Add the assets of a CSV file to a company file";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc import workshop.company assets.csv
      calculate every asset by its method and save it
  depcalc import --dry-run workshop.company assets.csv
      say what is wrong with the rows, and save nothing
  depcalc import --ignore-unknown workshop.company - < export.csv
      read standard input; other columns do no harm
)";
  }

  /// The CSV file is opened first and closed last: closing any file gives back the locks on it,
  /// and it might be the company file.
  ExitStatus run(Surroundings& surroundings) override {
    csv_.emplace(csv_path_);
    const ExitStatus status = csv_->failure().empty() ? CompanyCommand::run(surroundings)
                                                      : cannotRead(*csv_, surroundings.errors);
    csv_.reset();
    return status;
  }

 private:
  void declareMore(CLI::App& app) override {
    app.add_option("CSV", csv_path_, "CSV file with a header row; - for standard input")
        ->required()
        ->option_text(" ");
    app.add_flag("--dry-run", dry_run_, "Do everything but save");
    app.add_flag("--ignore-unknown", ignore_unknown_, "Skip columns whose name is not known");
    app.add_flag("--raw", raw_texts_,
                 "Take texts as they are, as `depcalc list --raw` writes them");
    app.footer(R"(Columns as `depcalc schedule --help` has them, but:
  method             SL, SYD, DDB, UOP, or empty: saved without amounts
  fiscal_year_end    MM-DD (the company's)

Every row that cannot be used is reported on standard error, and then nothing is imported.
Exit status: 0 done, 1 some rows were refused or are too many, 2 wrong usage, 3 a file cannot be
read or written, 4 the company file is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    AssetReader reader(*csv_, {.ignore_unknown = ignore_unknown_, .with_method = true},
                       {.today = company.today(),
                        .raw_texts = raw_texts_,
                        .fiscal_year_end = company.fiscalYearEnd()});
    const ImportedRows rows = readRows(reader, [&](const RowProblem& problem) {
      errors.write(problemText(csv_path_, problem) + '\n');
    });
    if (!csv_->failure().empty()) return cannotRead(*csv_, errors);
    if (rows.any_problem) {
      complain(company, "Nothing was imported.", errors);
      return exit_bad_data;
    }
    return hasRoomFor(rows.good_rows, company, errors) ? save(company, rows, surroundings)
                                                       : exit_bad_data;
  }

  static bool hasRoomFor(std::size_t added, const Company& company, Output& errors) {
    const std::int32_t present = company.assetCount();
    if (added <= static_cast<std::size_t>(most_assets - present)) return true;
    complain(company,
             "The register holds at most " + formatWhole(most_assets) + " assets; it has " +
                 formatWhole(present) + ", and the file has " +
                 formatWhole(static_cast<double>(added)) + " more. Nothing was imported.",
             errors);
    return false;
  }

  ExitStatus save(Company& company, const ImportedRows& rows, Surroundings& surroundings) const {
    std::optional<std::string> report;
    {
      Progress progress(surroundings.errors, "Saving assets", rows.assets.size());
      report = saveAssets(company, rows.assets, !dry_run_,
                          [&](std::size_t saved) { progress.reached(saved); });
    }
    if (report) {
      complain(company, *report + ". Nothing was imported.", surroundings.errors);
      return exit_system;
    }
    surroundings.out.write((dry_run_ ? "Would import " : "Imported ") +
                           assetsText(rows.assets.size()) + ".\n");
    return exit_success;
  }

  ExitStatus cannotRead(const InputFile& csv, Output& errors) const {
    errors.write("depcalc: " + printableText(csv_path_) + ": " + csv.failure() + '\n');
    return exit_system;
  }

  std::string csv_path_;
  bool dry_run_ = false;
  bool ignore_unknown_ = false;
  bool raw_texts_ = false;
  std::optional<InputFile> csv_;  ///< while the command runs
};

}  // namespace

std::unique_ptr<Command> importCommand() { return std::make_unique<ImportCommand>(); }

}  // namespace depcalc
