// depcalc delete: an asset taken out of the register.
#include <memory>
#include <string>

#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/deletion.h"
#include "cli/options.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

class DeleteCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "delete"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Delete an asset from a company file";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc list workshop.company
      the numbers of the assets
  depcalc delete workshop.company 3
      delete the third asset; those after it move up by one
)";
  }

 private:
  void declareMore(Arguments& arguments) override {
    addAssetNumber(arguments, number_).required();
    arguments.footer(
        R"(Exit status: 0 success, 1 no such asset, 2 wrong usage, 3 the file cannot be read or
written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    if (!hasAsset(company, number_, surroundings.errors)) return exit_bad_data;
    const std::string id = company.asset(number_)->AssetID();
    if (const auto report = deleteAsset(company, number_)) {
      complain(company, *report + ". Nothing was deleted.", surroundings.errors);
      return exit_system;
    }
    surroundings.out.write("Deleted asset " + std::to_string(number_) + ", " + quotedText(id) +
                           ".\n");
    return exit_success;
  }

  std::int32_t number_ = 0;
};

}  // namespace

std::unique_ptr<Command> deleteCommand() { return std::make_unique<DeleteCommand>(); }

}  // namespace depcalc
