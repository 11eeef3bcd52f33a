#include "cli/options.h"

#include <sched.h>

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
void addDateOption(Arguments& arguments, const std::string& name, const std::string& form,
                   Target& target, std::optional<Date> (*read)(const std::string&),
                   const std::string& description) {
  arguments
      .option(
          name + ' ' + form, [&target, read](const std::string& text) { target = *read(text); },
          description)
      .check([read, form](const std::string& text) {
        return read(text) ? std::string() : "\"" + text + "\" is not a date in the form " + form;
      });
}

}  // namespace

void addFormatOption(Arguments& arguments, OutputFormat& format,
                     const std::vector<std::string>& known) {
  const bool with_json = known.size() > 2;
  arguments
      .option(
          "--format FORMAT",
          [&format](const std::string& name) {
            format = name == "csv"    ? OutputFormat::csv
                     : name == "json" ? OutputFormat::json
                                      : OutputFormat::table;
          },
          with_json ? "Output format: table (for reading), csv or json"
                    : "Output format: table (for reading) or csv")
      .oneOf(known);
}

void addSeparatorOption(Arguments& arguments, char& separator) {
  arguments
      .option(
          "--separator SEPARATOR",
          [&separator](const std::string& text) { separator = *separatorNamed(text); },
          "Column separator: comma (the default), semicolon, tab or a single character")
      .check(
          [](const std::string& text) {
            return separatorNamed(text) ? ""
                                        : "\"" + text +
                                              "\" is not a separator; use comma, semicolon, tab or "
                                              "a single character";
          },
          {"comma", "semicolon", "tab"});
}

void addTodayOption(Arguments& arguments, std::optional<Date>& today) {
  addDateOption(arguments, "--today", "YYYY-MM-DD", today, isoDate,
                "Use this date as today's date");
}

Argument addAssetNumber(Arguments& arguments, std::int32_t& number) {
  return arguments.positional("N", number, "The asset's number, as `depcalc list` shows it")
      .check([](const std::string& text) {
        const bool whole = text.find_first_not_of("0123456789") == std::string::npos;
        return whole && text.size() < 10 && text.find_first_not_of('0') != std::string::npos
                   ? ""
                   : "\"" + text + "\" is not an asset number; numbers start at 1";
      });
}

void addFiscalYearEndOption(Arguments& arguments, Date& date, const std::string& description) {
  addDateOption(arguments, "--fiscal-year-end", "MM-DD", date, monthAndDay, description);
}

/// As many as this process may use, which can be fewer than the machine has.
int defaultJobs() {
  cpu_set_t may_use;
  const int cores = ::sched_getaffinity(0, sizeof may_use, &may_use) == 0
                        ? CPU_COUNT(&may_use)
                        : static_cast<int>(std::thread::hardware_concurrency());
  return std::clamp(cores, 1, most_jobs);
}

void addJobsOption(Arguments& arguments, int& jobs) {
  arguments.option("--jobs N", jobs, "Calculate on N cores (default: all); the output is the same")
      .check([](const std::string& text) {
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
