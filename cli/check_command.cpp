// depcalc check: whether a company file is in order.
#include <memory>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/consistency.h"

namespace depcalc {
namespace {

class CheckCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "check"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Check a company file for damage";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc check workshop.company
      what is wrong with the file, if anything
  depcalc check workshop.company && cp workshop.company backup/
      copy the file only if it is sound
)";
  }

 private:
  [[nodiscard]] bool onlyReads() const override { return true; }

  void declareMore(Arguments& arguments) override {
    arguments.footer(
        R"(Checks the file's structure, the digest of every record, the assets' numbers, the types of their
values and the register's summary. Nothing is changed.
Exit status: 0 no problems, 1 problems found, 2 wrong usage, 3 the file cannot be read,
4 it is in use.)");
  }

  // Opening has checked the file as such.
  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    const auto found = inconsistenciesOf(company);
    for (const std::string& problem : found) complain(company, problem, surroundings.errors);
    if (!found.empty()) return exit_bad_data;
    const std::int32_t count = company.assetCount();
    surroundings.out.write(company.name() + ": No problems found in " + std::to_string(count) +
                           (count == 1 ? " asset.\n" : " assets.\n"));
    return exit_success;
  }
};

}  // namespace

std::unique_ptr<Command> checkCommand() { return std::make_unique<CheckCommand>(); }

}  // namespace depcalc
