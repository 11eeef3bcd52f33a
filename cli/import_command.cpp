// depcalc import: the assets of a CSV file into the register.
#include <memory>
#include <optional>
#include <string>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/importer.h"
#include "cli/input_file.h"
#include "cli/options.h"
#include "cli/progress.h"
#include "cli/text_columns.h"
#include "host/sqlite/database.h"
#include "importing/asset_saving.h"
#include "values/display_format.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

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
  depcalc list --format csv old.company | depcalc import --allow-duplicates new.company -
      copy every asset to another company file
  depcalc import --separator semicolon workshop.company export.csv
      read what a spreadsheet writes where a comma is the decimal point
  depcalc import --ignore-unknown workshop.company - < export.csv
      read standard input; other columns are skipped
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
  void declareMore(Arguments& arguments) override {
    arguments.positional("CSV", csv_path_, "CSV file with a header row; - for standard input")
        .required();
    arguments.flag("--dry-run", dry_run_, "Do everything except save");
    arguments.flag("--allow-duplicates", allow_duplicates_,
                   "Accept rows whose ID or serial number already exists");
    addSeparatorOption(arguments, separator_);
    arguments.flag("--ignore-unknown", ignore_unknown_, "Skip unknown columns");
    arguments.flag("--raw", raw_texts_, "Read text unchanged, as `depcalc list --raw` writes it");
    arguments.footer(R"(Columns are the same as for `depcalc schedule --help`, except:
  method             SL, SYD, DDB, UOP, or empty (saved without amounts)
  disposed           the day on which the asset left service, or empty
  proceeds           what was obtained for it then
  fiscal_year_end    MM-DD, or a date, whose year is ignored (the company's)
  placed_in_service  any date; those more than 50 years from today are pointed out
  life, basis        0 is also accepted where there is no method
  id, name, serial, department   text of any length

Every row that cannot be used is reported on standard error, and then nothing is imported. The same
goes for a row whose ID or serial number already appears in the register or on an earlier line;
empty ones are ignored. After the 200th such row, one line gives the number of the others.
Exit status: 0 success, 1 some rows were refused or are too many, 2 wrong usage, 3 a file cannot be
read or written, 4 the company file is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    AssetReader reader(*csv_, {.ignore_unknown = ignore_unknown_, .with_method = true},
                       rulesFor(company), {.separator = separator_, .limits = textLimits()});
    std::optional<Duplicates> duplicates;
    if (!allow_duplicates_) duplicates.emplace(company);
    const ImportedRows rows = readRows(
        reader, company.today(), duplicates ? &*duplicates : nullptr,
        [&](const RowProblem& problem) { errors.write(problemText(csv_path_, problem) + '\n'); });
    if (!csv_->failure().empty()) return cannotRead(*csv_, errors);
    if (rows.bad_header || rows.bad_rows > 0) return refuse(company, rows, errors);
    return hasRoomFor(rows.good_rows, company, errors) ? save(company, rows, surroundings)
                                                       : exit_bad_data;
  }

  /// What the calculator saves, import takes back.
  [[nodiscard]] AssetRules rulesFor(const Company& company) const {
    return {.today = company.today(),
            .date_limit = DateLimit::none,
            .raw_texts = raw_texts_,
            .as_saved = true,
            .decimal_commas = separator_ != ',',
            .fiscal_year_end = company.fiscalYearEnd()};
  }

  /// No text of a company file is longer; the other fields of its row have room as well.
  static CsvLimits textLimits() {
    return {.field_bytes = most_text_bytes,
            .record_bytes = most_text_bytes + CsvLimits().record_bytes};
  }

  ExitStatus refuse(const Company& company, const ImportedRows& rows, Output& errors) const {
    if (rows.bad_rows > most_reported_rows) {
      const std::size_t more = rows.bad_rows - most_reported_rows;
      errors.write("depcalc: " + printableText(csv_path_) + ": " + counted(more, "more row") +
                   " cannot be used.\n");
    }
    std::string message = "Nothing was imported.";
    if (rows.duplicate_rows > 0) {
      message += " Use --allow-duplicates to accept IDs and serial numbers that already exist.";
    }
    complain(company, message, errors);
    return exit_bad_data;
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
      Progress progress(surroundings.errors, "Saving assets", rows.assets.size(), surroundings.now);
      report = saveAssets(company, rows.assets, !dry_run_,
                          [&](std::size_t saved) { progress.reached(saved); });
    }
    if (report) {
      complain(company, *report + ". Nothing was imported.", surroundings.errors);
      return exit_system;
    }
    remarkOnDates(company, rows, surroundings.errors);
    surroundings.out.write((dry_run_ ? "Would import " : "Imported ") +
                           counted(rows.assets.size(), "asset") + ".\n");
    return exit_success;
  }

  /// A slip in a year should not go unseen.
  static void remarkOnDates(const Company& company, const ImportedRows& rows, Output& errors) {
    if (rows.distant_lines.empty()) return;
    const std::size_t count = rows.distant_lines.size();
    complain(company,
             counted(count, "asset") + (count == 1 ? " is" : " are") +
                 " placed in service more than 50 years before or after today; see line " +
                 std::to_string(rows.distant_lines.front()) + ".",
             errors);
  }

  ExitStatus cannotRead(const InputFile& csv, Output& errors) const {
    errors.write("depcalc: " + printableText(csv_path_) + ": " + csv.failure() + '\n');
    return exit_system;
  }

  std::string csv_path_;
  bool dry_run_ = false;
  bool allow_duplicates_ = false;
  char separator_ = ',';
  bool ignore_unknown_ = false;
  bool raw_texts_ = false;
  std::optional<InputFile> csv_;  ///< while the command runs
};

}  // namespace

std::unique_ptr<Command> importCommand() { return std::make_unique<ImportCommand>(); }

}  // namespace depcalc
