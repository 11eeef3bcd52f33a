#include "cli/company.h"

#include <variant>

#include "cli/arguments.h"
#include "cli/options.h"
#include "common/heard_reports.h"
#include "common/trapped.h"
#include "host/places/company_places.h"
#include "values/printable_text.h"

namespace depcalc {

ExitStatus reportTrouble(const FileTrouble& trouble, Output& errors) {
  using Kind = FileTrouble::Kind;
  errors.write("depcalc: " + printableText(trouble.description()) + '\n');
  if (trouble.details().size() > 1) {
    for (const std::string& detail : trouble.details()) {
      errors.write("  " + printableText(detail) + '\n');
    }
  }
  switch (trouble.kind()) {
    case Kind::locked:
      return exit_locked;
    case Kind::damaged:
    case Kind::newer:
    case Kind::not_a_company_file:
      return exit_bad_data;
    default:
      return exit_system;
  }
}

void CompanyCommand::declare(Arguments& arguments) {
  declareFirst(arguments);
  arguments.positional("FILE", path_, "The company file").required();
  declareMore(arguments);
  addTodayOption(arguments, today_);
}

ExitStatus CompanyCommand::run(Surroundings& surroundings) {
  const Date today = today_.value_or(surroundings.today);
  const auto opened = openCompany(
      path_, {.opening = {.today = [today] { return today; }, .writable = !onlyReads()}});
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) {
    return reportTrouble(*trouble, surroundings.errors);
  }
  const auto& file = std::get<std::shared_ptr<StoredCompanyFile>>(opened);
  Company company(file, printableText(path_), today, file->info());
  ExitStatus status = exit_system;
  const HeardReports heard;
  const bool done = trapped("depcalc", [&] { status = runOn(company, surroundings); });
  if (const auto trouble = file->takeTrouble()) return reportTrouble(*trouble, surroundings.errors);
  if (done && !heard.ofMemory()) return status;
  // A part that had no memory and was passed over leaves the rest in doubt.
  const std::string_view known(heard.last());
  complain(company, known.empty() || done ? "Out of memory" : known, surroundings.errors);
  return exit_system;
}

bool CompanyCommand::hasAsset(const Company& company, std::int32_t number, Output& errors) {
  const std::int32_t count = company.assetCount();
  if (number <= count) return true;
  complain(company,
           "There is no asset " + std::to_string(number) + "; the register holds " +
               std::to_string(count) + ".",
           errors);
  return false;
}

void CompanyCommand::complain(const Company& company, std::string_view message, Output& errors) {
  errors.write("depcalc: " + company.name() + ": " + printableText(message) + '\n');
}

ExitStatus CompanyCommand::refuse(const Company& company, std::int32_t number,
                                  const std::string& why, Output& errors) {
  complain(company, "Asset " + std::to_string(number) + ": " + why + " Nothing was changed.",
           errors);
  return exit_bad_data;
}

bool CompanyCommand::isSaved(const Company& company, const std::optional<std::string>& trouble,
                             Output& errors) {
  if (trouble) complain(company, *trouble + ". Nothing was changed.", errors);
  return !trouble;
}

}  // namespace depcalc
