#include "reports/explaining/saved_explanation.h"

#include "common/trapped.h"
#include "engine/method.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

ExplainedAsset explainedAsset(const SavedAsset& saved, AmountsShown shown) {
  return {.placed_in_service = saved.placed_in_service,
          .fiscal_year_end = saved.fiscal_year_end,
          .basis = saved.basis,
          .salvage = saved.salvage,
          .life = saved.life,
          .convention =
              saved.convention.empty() ? 0 : toLong32HalfEven(numberFromText(saved.convention)),
          .capacity = tryNumberFromText(saved.capacity).value_or(0.0),
          .disposed = shown == AmountsShown::in_reports ? saved.disposed : Date(),
          .units = saved.units};
}

Currency savedAt(const SavedAsset& saved, int index) {
  const bool there = index >= 0 && static_cast<std::size_t>(index) < saved.amounts.size();
  return there ? saved.amounts[static_cast<std::size_t>(index)] : Currency();
}

/// What is shown for the amount that `explanation` explains.
Currency shownAmount(const ReportAsset& asset, const Explanation& explanation, AmountsShown shown) {
  if (!explanation.fiscal_year) return savedAt(asset.saved(), 0);
  const int year = *explanation.fiscal_year;
  const bool saved_itself =
      shown == AmountsShown::in_register && !isUnitsOfProduction(explanation.method);
  return saved_itself ? savedAt(asset.saved(), year - asset.firstYear()) : asset.amount(year);
}

void compareWithSaved(const ReportAsset& asset, AmountsShown shown, Explanation& explanation) {
  if (explanation.method != asset.method()) return;
  const Currency saved = shownAmount(asset, explanation, shown);
  if (saved != explanation.amount) explanation.saved = saved;
}

}  // namespace

std::optional<std::vector<Explanation>> explainSaved(const ReportAsset& asset,
                                                     std::string_view method, AmountsShown shown) {
  std::vector<Explanation> all;
  const bool done = trapped("DepCalc::Explain", [&] {
    all = explain(explainedAsset(asset.saved(), shown), method);
    for (Explanation& one : all) compareWithSaved(asset, shown, one);
  });
  return done ? std::optional(std::move(all)) : std::nullopt;
}

std::optional<Explanation> explainSavedYear(const ReportAsset& asset, std::string_view method,
                                            AmountsShown shown, int fiscal_year) {
  Explanation explanation;
  const bool done = trapped("DepCalc::Explain", [&] {
    explanation = explainYear(explainedAsset(asset.saved(), shown), method, fiscal_year);
    compareWithSaved(asset, shown, explanation);
  });
  return done ? std::optional(std::move(explanation)) : std::nullopt;
}

}  // namespace depcalc
