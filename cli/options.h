// Options that several subcommands have.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "values/date.h"

namespace depcalc {

/// How a command writes what it has to say.
enum class OutputFormat : std::uint8_t { table, csv, json };

/// --format FORMAT into `format`, one of the `known` names.
void addFormatOption(Arguments& arguments, OutputFormat& format,
                     const std::vector<std::string>& known = {"table", "csv", "json"});

/// --separator SEPARATOR into `separator`: one character, or its name.
void addSeparatorOption(Arguments& arguments, char& separator);

/// --today YYYY-MM-DD into `today`.
void addTodayOption(Arguments& arguments, std::optional<Date>& today);

/// N, the number of an asset from 1, into `number`.
Argument addAssetNumber(Arguments& arguments, std::int32_t& number);

/// --fiscal-year-end MM-DD into `date`, of which only month and day count.
void addFiscalYearEndOption(Arguments& arguments, Date& date, const std::string& description);

/// The cores that this process may use, most_jobs at most.
[[nodiscard]] int defaultJobs();
/// --jobs N into `jobs`, 1 to most_jobs.
inline constexpr int most_jobs = 32;
void addJobsOption(Arguments& arguments, int& jobs);

}  // namespace depcalc
