#include "cli/options.h"

#include <sched.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string>
#include <thread>

#include "cli/foreign_file.h"
#include "importing/asset_row.h"

namespace depcalc {
namespace {

/// The limit of fifty years either way must be within the calendar.
bool leavesRoomForTheLimit(Date date) { return date.year() >= 150 && date.year() <= 9949; }

std::optional<Date> isoDate(const std::string& text) {
  const bool year_first = text.size() == 10 && text[4] == '-';
  if (!year_first || !looksLikeFileDate(text)) return std::nullopt;
  const auto date = Date::tryFromText(text, Date());
  return date && leavesRoomForTheLimit(*date) ? date : std::nullopt;
}

std::optional<Date> monthAndDay(const std::string& text) { return fiscalYearEndFromText(text); }

/// An option whose text `read` turns into a date; a text it cannot read is a usage error.
template <typename Target>
void addDateOption(CLI::App& app, const std::string& name, Target& target,
                   std::optional<Date> (*read)(const std::string&), const std::string& form,
                   const std::string& description) {
  app.add_option_function<std::string>(
         name, [&target, read](const std::string& text) { target = *read(text); }, description)
      ->option_text(form)
      ->check([read, form](const std::string& text) {
        return read(text) ? std::string() : "\"" + text + "\" is not a date in the form " + form;
      });
}

}  // namespace

void addFormatOption(CLI::App& app, OutputFormat& format, const std::vector<std::string>& known) {
  const bool with_json = known.size() > 2;
  app.add_option_function<std::string>(
         "--format",
         [&format](const std::string& name) {
           format = name == "csv"    ? OutputFormat::csv
                    : name == "json" ? OutputFormat::json
                                     : OutputFormat::table;
         },
         with_json ? "Output format: table (for reading), csv or json"
                   : "Output format: table (for reading) or csv")
      ->check(CLI::IsMember(known))
      ->option_text("FORMAT");
}

void addSeparatorOption(CLI::App& app, char& separator) {
  app.add_option_function<std::string>(
         "--separator",
         [&separator](const std::string& text) { separator = *separatorNamed(text); },
         "Column separator: comma (the default), semicolon, tab or a single character")
      ->option_text("SEPARATOR")
      ->check(CLI::Validator(
          [](const std::string& text) {
            return separatorNamed(text) ? ""
                                        : "\"" + text +
                                              "\" is not a separator; use comma, semicolon, tab or "
                                              "a single character";
          },
          "{comma,semicolon,tab}"));
}

void addTodayOption(CLI::App& app, std::optional<Date>& today) {
  addDateOption(app, "--today", today, isoDate, "YYYY-MM-DD", "Use this date as today's date");
}

CLI::Option* addAssetNumber(CLI::App& app, std::int32_t& number) {
  return app.add_option("N", number, "The asset's number, as `depcalc list` shows it")
      ->option_text(" ")
      ->check([](const std::string& text) {
        const bool whole = text.find_first_not_of("0123456789") == std::string::npos;
        return whole && text.size() < 10 && text.find_first_not_of('0') != std::string::npos
                   ? ""
                   : "\"" + text + "\" is not an asset number; numbers start at 1";
      });
}

void addFiscalYearEndOption(CLI::App& app, Date& date, const std::string& description) {
  addDateOption(app, "--fiscal-year-end", date, monthAndDay, "MM-DD", description);
}

/// As many as this process may use, which can be fewer than the machine has.
int defaultJobs() {
  cpu_set_t may_use;
  const int cores = ::sched_getaffinity(0, sizeof may_use, &may_use) == 0
                        ? CPU_COUNT(&may_use)
                        : static_cast<int>(std::thread::hardware_concurrency());
  return std::clamp(cores, 1, most_jobs);
}

void addJobsOption(CLI::App& app, int& jobs) {
  app.add_option("--jobs", jobs, "Calculate on N cores (default: all); the output is the same")
      ->option_text("N")
      ->check([](const std::string& text) {
        const bool short_number = !text.empty() && text.size() < 4 &&
                                  text.find_first_not_of("0123456789") == std::string::npos;
        const int number = short_number ? std::stoi(text) : 0;
        return number >= 1 && number <= most_jobs
                   ? ""
                   : "\"" + text + "\" is not a number of jobs; use 1 to " +
                         std::to_string(most_jobs);
      });
}

}  // namespace depcalc
