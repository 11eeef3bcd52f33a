// depcalc copy: a company to another place.
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/company.h"
#include "cli/options.h"
#include "common/trapped.h"
#include "host/places/company_places.h"

namespace depcalc {
namespace {

class CopyCommand final : public Command {
 public:
  [[nodiscard]] std::string_view name() const override { return "copy"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Copy a company between files and servers";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc copy workshop.company postgresql://office/books#Workshop
      take a company file to a server
  depcalc copy postgresql://office/books#Workshop workshop-2024.company
      keep a company of a server in a file
)";
  }

  void declare(Arguments& arguments) override {
    arguments.positional("FROM", from_, "The company to copy").required();
    arguments.positional("TO", to_, "The company to create").required();
    addTodayOption(arguments, today_);
    arguments.footer(
        R"(Each is a company file or the address of a company on a server,
postgresql://[user@]host[:port]/database#Company with %20 for each space. The copy has the name,
the fiscal year, the mode and every record of the company. It appears whole or not at all; what
exists is never overwritten.
Exit status: 0 success, 1 FROM is damaged, 2 wrong usage, 3 FROM cannot be read or TO cannot be
created, 4 FROM is in use.)");
  }

  ExitStatus run(Surroundings& surroundings) override {
    const Date today = today_.value_or(surroundings.today);
    const auto from = openCompany(from_, placesOn(today, false));
    if (const auto* trouble = std::get_if<FileTrouble>(&from)) {
      return reportTrouble(*trouble, surroundings.errors);
    }
    const auto made = createCopy(to_, *std::get<0>(from), placesOn(today));
    const auto* trouble = std::get_if<FileTrouble>(&made);
    return trouble != nullptr ? reportTrouble(*trouble, surroundings.errors) : exit_success;
  }

 private:
  std::string from_;
  std::string to_;
  std::optional<Date> today_;
};

}  // namespace

std::unique_ptr<Command> copyCommand() { return std::make_unique<CopyCommand>(); }

}  // namespace depcalc
