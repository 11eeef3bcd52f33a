// depcalc dispose: an asset that leaves service.
#include <array>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "changes/disposing.h"
#include "cli/arguments.h"
#include "cli/company.h"
#include "cli/options.h"
#include "cli/text_columns.h"
#include "importing/asset_row.h"
#include "values/display_format.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

using Row = std::array<std::string, 2>;

void writeEffect(const DisposalEffect& effect, Currency proceeds, Output& out) {
  const bool loss = effect.gain < Currency();
  const std::vector<Row> rows{
      {"Depreciation of FY" + std::to_string(effect.fiscal_year), formatMoney(effect.depreciation)},
      {"Accumulated depreciation", formatMoney(effect.accumulated)},
      {"Book value", formatMoney(effect.book_value)},
      {"Proceeds", formatMoney(proceeds)},
      {loss ? "Loss on disposal" : "Gain on disposal",
       formatMoney(loss ? Currency() - effect.gain : effect.gain)}};
  writeColumns(rows, {false, true}, out);
  if (!effect.scheduled) out.write("No amounts are saved for this asset.\n");
}

class DisposeCommand final : public CompanyCommand {
 public:
  [[nodiscard]] std::string_view name() const override { return "dispose"; }

  [[nodiscard]] std::string_view summary() const override {
    return "Record that an asset was sold or retired";
  }

  [[nodiscard]] std::string_view examples() const override {
    return R"(  depcalc dispose workshop.company 3 --date 2026-06-30 --proceeds 1250
      the third asset was sold
  depcalc dispose workshop.company 3 --undo
      it was not: it is in service again
)";
  }

 private:
  void declareMore(Arguments& arguments) override {
    addAssetNumber(arguments, number_).required();
    const Argument date =
        arguments.option("--date YYYY-MM-DD", date_, "The day on which it left service")
            .check([](const std::string& text) {
              return looksLikeFileDate(text)
                         ? ""
                         : "\"" + text + "\" is not a date in the form YYYY-MM-DD";
            });
    const Argument proceeds = arguments.option("--proceeds AMOUNT", proceeds_,
                                               "What was obtained for it (default: nothing)");
    arguments.flag("--undo", undo_, "Take the disposal back").excludes(date).excludes(proceeds);
    arguments.footer(
        R"(What the disposal comes to is printed: the depreciation of the fiscal year in which the asset leaves
service, its book value then, and the gain or loss. Another disposal replaces the one recorded.

Exit status: 0 success, 1 it was refused or the file is damaged, 2 wrong usage, 3 the file cannot be
read or written, 4 it is in use.)");
  }

  ExitStatus runOn(Company& company, Surroundings& surroundings) override {
    Output& errors = surroundings.errors;
    if (!undo_ && date_.empty()) {
      errors.write(
          "depcalc: Please give --date, or --undo.\nRun with --help for more information.\n");
      return exit_usage;
    }
    if (!hasAsset(company, number_, errors)) return exit_bad_data;
    if (const auto refusal = whyNotSavedAnew(company, number_))
      return refuse(company, number_, *refusal, errors);
    return undo_ ? takeBack(company, surroundings) : dispose(company, surroundings);
  }

  ExitStatus dispose(Company& company, Surroundings& surroundings) const {
    const SavedAsset asset = savedAsset(company, number_);
    const auto entered = disposalFrom(date_, proceeds_, asset, company.today());
    if (const auto* refusal = std::get_if<std::string>(&entered)) {
      return refuse(company, number_, *refusal, surroundings.errors);
    }
    const auto& disposal = std::get<Disposal>(entered);
    const DisposalEffect effect = effectOf(asset, disposal);
    if (!save(company, disposal, surroundings)) return exit_system;
    surroundings.out.write("Disposed of asset " + std::to_string(number_) + ", " +
                           quotedText(asset.id) + ", on " + disposal.date.toText() + ".\n");
    writeEffect(effect, disposal.proceeds, surroundings.out);
    return exit_success;
  }

  ExitStatus takeBack(Company& company, Surroundings& surroundings) const {
    const SavedAsset asset = savedAsset(company, number_);
    if (asset.disposed.isNone()) {
      return refuse(company, number_, "It has not been disposed of.", surroundings.errors);
    }
    if (!save(company, std::nullopt, surroundings)) return exit_system;
    surroundings.out.write("Asset " + std::to_string(number_) + ", " + quotedText(asset.id) +
                           ", is in service again.\n");
    return exit_success;
  }

  [[nodiscard]] bool save(Company& company, const std::optional<Disposal>& disposal,
                          Surroundings& surroundings) const {
    return isSaved(company, saveDisposal(company, number_, disposal), surroundings.errors);
  }

  std::int32_t number_ = 0;
  std::string date_;
  std::string proceeds_;
  bool undo_ = false;
};

}  // namespace

std::unique_ptr<Command> disposeCommand() { return std::make_unique<DisposeCommand>(); }

}  // namespace depcalc
