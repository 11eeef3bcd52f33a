#include "DepCalc/recalculation.h"

#include <algorithm>
#include <map>
#include <variant>

#include "DepCalc/register_summary.h"
#include "DepCalc/saved_types.h"
#include "common/heard_reports.h"
#include "common/trapped.h"
#include "engine/method_batch.h"
#include "entry/field_rules.h"
#include "host/fiscal_year.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr int last_year_of_calendar = 9999;

/// What the field rules say to a value as the form would show it.
template <typename Value>
std::string refusalOf(const Checked<Value>& checked) {
  const auto* rejected = std::get_if<Rejected>(&checked);
  return rejected == nullptr ? std::string() : std::string(messageOf(rejected->message).text);
}

std::string textOf(FormMessage message) { return std::string(messageOf(message).text); }

/// Why the entry form would not calculate `asset`; empty where it would.
std::string refusedByForm(const CalculateDep& asset) {
  if (asset.AssetStartDate().isNone()) return textOf(FormMessage::start_date_missing);
  if (asset.DepRecovery() == 0) return textOf(FormMessage::life_missing);
  if (asset.AssetBasis() == Currency()) return textOf(FormMessage::basis_missing);
  const std::string basis = asset.AssetBasis().toText();
  const std::string salvage = asset.AssetSalvage().toText();
  for (std::string refusal :
       {refusalOf(usefulLifeRule({numberToText(asset.DepRecovery())})),
        refusalOf(basisRule({basis}, "")), refusalOf(salvageRule({salvage}, basis)),
        refusalOf(productionCapacityRule({asset.AssetProdCap()}))}) {
    if (!refusal.empty()) return refusal;
  }
  const bool known = std::any_of(methods.begin(), methods.end(), [&](const Method& method) {
    return method.code == asset.DepMethod();
  });
  if (!known) {
    return "\"" + asset.DepMethod() + "\" is not a depreciation method.";
  }
  if (asset.AssetStartDate().year() + asset.DepRecovery() >= last_year_of_calendar) {
    return "The schedule would run beyond the year 9999.";
  }
  return {};
}

/// Why a calculation failed; empty where it did not.
template <typename Calculation>
std::string failureOf(Calculation calculation) {
  const HeardReports heard;
  const bool done = trapped("DepCalc::Recalculate", calculation);
  if (heard.ofMemory() || (!done && heard.last().empty())) throw RuntimeError::outOfMemory();
  return heard.last();
}

/// The amounts by fiscal year as the register shows them; the rate alone under no year.
using AmountsByYear = std::map<std::optional<int>, Currency>;

AmountsByYear amountsOf(const CalculateDep& asset) {
  AmountsByYear amounts;
  if (asset.DepMethod().empty()) return amounts;
  const std::vector<Currency>& items = asset.depItems();
  if (isUnitsOfProduction(asset.DepMethod())) {
    amounts[std::nullopt] = items.empty() ? Currency() : items.front();
    return amounts;
  }
  const int first_year = firstFiscalYearOf(asset.AssetStartDate(), asset.FYEnd());
  for (std::size_t i = 0; i < items.size(); ++i) {
    amounts[first_year + static_cast<int>(i)] = items[i];
  }
  return amounts;
}

class Calculating {
 public:
  Calculating(CompanyAssets& assets, FiscalYearEnds ends)
      : assets_(assets),
        ends_(ends),
        company_end_(assets.fiscalYearEnd()),
        table_(assets.file().OpenTable(asset_table_name)) {}

  Recalculation all() {
    const std::int32_t count = assets_.assetCount();
    for (std::int32_t i = 1; i <= count; ++i) {
      looked_.push_back(look(i));
      if (looked_.size() == MethodBatch::most || i == count) calculateLookedAt();
    }
    return std::move(result_);
  }

 private:
  /// An asset that is ready to be calculated, unless there is a reason to leave it.
  struct Looked {
    std::int32_t number = 0;
    CalculateDepPtr asset;
    std::string reason{};
    AmountsByYear before{};
    bool moves = false;
  };

  Looked look(std::int32_t number) {
    Looked looked{.number = number, .asset = assets_.asset(number)};
    CalculateDep& asset = *looked.asset;
    looked.reason = reasonToLeave(number, asset);
    if (!looked.reason.empty()) return looked;
    looked.before = amountsOf(asset);
    looked.moves =
        ends_ == FiscalYearEnds::company && !isSameDayOfYear(asset.FYEnd(), company_end_);
    if (looked.moves) asset.FYEnd(company_end_);
    return looked;
  }

  [[nodiscard]] std::string reasonToLeave(std::int32_t number, const CalculateDep& asset) const {
    const auto wrong = wrongTypesIn(*table_, static_cast<std::int16_t>(number));
    if (!wrong.empty()) return wrong.front();
    if (asset.RecIndex() != std::to_string(number)) {
      return "Its record has the number " + asset.RecIndex() + " instead of " +
             std::to_string(number) + ".";
    }
    return asset.DepMethod().empty() ? "" : refusedByForm(asset);
  }

  void calculateLookedAt() {
    std::vector<CalculateDep*> together;
    for (const Looked& looked : looked_) together.push_back(looked.asset.get());
    batch_.calculate(together);
    for (std::size_t i = 0; i < looked_.size(); ++i) calculate(i, looked_[i]);
    looked_.clear();
  }

  void calculate(std::size_t index, const Looked& looked) {
    std::string reason = looked.reason;
    if (reason.empty()) reason = failureOf([&] { batch_.giveChosen(index); });
    if (!reason.empty()) {
      result_.left.push_back({looked.number, looked.asset->AssetID(), std::move(reason)});
      return;
    }
    ++(looked.asset->DepMethod().empty() ? result_.without_method : result_.calculated);
    if (looked.moves) ++result_.moved;
    if (addChanges(looked.number, *looked.asset, looked.before) || looked.moves) {
      result_.to_save.push_back(looked.asset);
    }
  }

  /// Whether there is any. A year without an amount counts as one with 0.
  bool addChanges(std::int32_t number, const CalculateDep& asset, const AmountsByYear& before) {
    AmountsByYear after = amountsOf(asset);
    for (const auto& [year, amount] : before) after.try_emplace(year);
    const std::size_t earlier = result_.changes.size();
    for (const auto& [year, amount] : after) {
      const auto found = before.find(year);
      const Currency old_amount = found == before.end() ? Currency() : found->second;
      if (old_amount == amount) continue;
      result_.changes.push_back({number, asset.AssetID(), year, old_amount, amount});
    }
    return result_.changes.size() > earlier;
  }

  CompanyAssets& assets_;
  FiscalYearEnds ends_;
  Date company_end_;
  std::shared_ptr<HostTable> table_;
  std::vector<Looked> looked_;
  MethodBatch batch_;
  Recalculation result_;
};

}  // namespace

Recalculation recalculated(CompanyAssets& assets, FiscalYearEnds ends) {
  return Calculating(assets, ends).all();
}

std::optional<std::string> saveRecalculation(CompanyAssets& assets,
                                             const Recalculation& recalculation,
                                             const std::function<void(std::size_t)>& reached) {
  return assets.changeAtOnce([&] {
    assets.store().open();
    std::size_t saved = 0;
    for (const CalculateDepPtr& asset : recalculation.to_save) {
      assets.store().DepCalcContSaveRecord(asset);
      reached(++saved);
    }
  });
}

std::int32_t assetsOfOtherFiscalYears(CompanyAssets& assets) {
  std::int32_t others = 0;
  const std::int32_t count = assets.assetCount();
  for (std::int32_t i = 1; i <= count; ++i) {
    if (!isSameDayOfYear(assets.asset(i)->FYEnd(), assets.fiscalYearEnd())) ++others;
  }
  return others;
}

}  // namespace depcalc
