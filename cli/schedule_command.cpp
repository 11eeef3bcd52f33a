// depcalc schedule: the schedules of the assets of a CSV file.
#include "cli/arguments.h"
#include "cli/asset_reader.h"
#include "cli/command.h"
#include "cli/input_file.h"
#include "cli/options.h"
#include "cli/schedule_jobs.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

class ScheduleCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "schedule"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Calculate the assets of a CSV file by every method";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc schedule assets.csv
      compare the methods side by side, a block per asset
  depcalc schedule --format csv assets.csv > amounts.csv
      a row per asset, method and fiscal year, for another program
  depcalc schedule --fiscal-year-end 06-30 --ignore-unknown - < export.csv
      read standard input; fiscal years end on June 30; other columns are skipped
)";
  }

  void declare(Arguments& arguments) override {
    arguments.positional("FILE", file_,
                         "CSV file with a header row; - or nothing for standard input");
    addFormatOption(arguments, format_);
    addTodayOption(arguments, today_);
    addFiscalYearEndOption(arguments, fiscal_year_end_,
                           "The fiscal year's last day where the file gives none (default: 12-31)");
    addSeparatorOption(arguments, separator_);
    arguments.flag("--ignore-unknown", ignore_unknown_, "Skip unknown columns");
    arguments.flag("--no-date-limit", no_date_limit_,
                   "Accept dates more than 50 years before or after today");
    arguments.flag("--raw", raw_texts_,
                   "Read and write text unchanged, for other programs; see list --help");
    addJobsOption(arguments, jobs_);
    arguments.footer(
        R"(Columns, in any order and any case, with defaults in parentheses; the first three are required:
  placed_in_service  YYYY-MM-DD or mm/dd/yyyy
  life               useful life in years, 1 to 50
  basis              cost, above 0 and below 10,000,000
  salvage            residual value, up to the basis (0)
  convention         Full Year, Half Year, Full Month, Half Month, Actual Days, or 0 to 4 (0)
  fiscal_year_end    MM-DD, or a date, whose year is ignored (12-31)
  capacity           units that the asset will produce (0)
  id, name, serial, department   text of up to 20 characters

A row that cannot be used is reported on standard error and left out.
Exit status: 0 success, 1 some rows were refused, 2 wrong usage, 3 a file cannot be read or
written.)");
  }

  ExitStatus run(Surroundings& surroundings) override {
    InputFile file(file_);
    const bool all_good = writeAll(file, surroundings);
    if (!file.failure().empty()) {
      surroundings.errors.write("depcalc: " + printableText(file_) + ": " + file.failure() + '\n');
      return exit_system;
    }
    return all_good ? exit_success : exit_bad_data;
  }

 private:
  [[nodiscard]] std::unique_ptr<ScheduleWriter> makeWriter(Output& out) const {
    if (format_ == OutputFormat::csv) return csvWriter(out, CsvFields(raw_texts_));
    if (format_ == OutputFormat::json) return jsonWriter(out);
    return tableWriter(out);
  }

  [[nodiscard]] AssetRules rules(Date clock) const {
    return {.today = today_.value_or(clock),
            .date_limit = no_date_limit_ ? DateLimit::none : DateLimit::fifty_years,
            .raw_texts = raw_texts_,
            .decimal_commas = separator_ != ',',
            .fiscal_year_end = fiscal_year_end_};
  }

  /// Whether every row was good.
  bool writeAll(InputFile& file, Surroundings& surroundings) {
    const ScheduleRun run = {
        .writer = [this](Output& out) { return makeWriter(out); },
        .message = [this](const RowProblem& problem) { return problemText(file_, problem) + '\n'; },
        .rules = rules(surroundings.today),
        .form = {.separator = separator_}};
    AssetReader reader(file, {.ignore_unknown = ignore_unknown_}, run.rules, run.form);
    const bool begun = reader.begin();
    for (const RowProblem& problem : reader.problems())
      surroundings.errors.write(run.message(problem));
    if (!begun) return false;
    return writeRows(run, file, reader, jobs_, surroundings.out, surroundings.errors).all_good;
  }

  std::string file_ = "-";
  OutputFormat format_ = OutputFormat::table;
  std::optional<Date> today_;
  Date fiscal_year_end_ = Date::strict(2000, 12, 31);
  char separator_ = ',';
  bool ignore_unknown_ = false;
  bool no_date_limit_ = false;
  bool raw_texts_ = false;
  int jobs_ = defaultJobs();
};

}  // namespace

std::unique_ptr<Command> scheduleCommand() { return std::make_unique<ScheduleCommand>(); }

}  // namespace depcalc
