#include "reports/register_check.h"

#include <algorithm>
#include <array>
#include <map>

#include "engine/asset_fiscal_years.h"
#include "engine/convention.h"
#include "engine/method.h"
#include "reports/todays_calculation.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

enum Severity : std::size_t { error, warning, note };
constexpr std::array<std::string_view, 3> severities{"error", "warning", "note"};
constexpr double years_from_today = 50;

struct Finding {
  Severity severity;
  std::int32_t number;
  std::string id;
  std::string text;
};

/// "FY2021, FY2023 to FY2025".
std::string yearsText(const std::vector<int>& years) {
  std::string text;
  for (std::size_t i = 0; i < years.size(); ++i) {
    std::size_t last = i;
    while (last + 1 < years.size() && years[last + 1] == years[last] + 1) ++last;
    if (!text.empty()) text += ", ";
    text += fiscalYearName(years[i]);
    if (last > i) text += (last == i + 1 ? ", " : " to ") + fiscalYearName(years[last]);
    i = last;
  }
  return text;
}

const std::vector<Currency>* scheduleBy(std::string_view method, const MethodResults& results) {
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    if (scheduled.method.code == method) return &(results.*scheduled.amounts);
  }
  return nullptr;
}

bool isKnownMethod(const ReportAsset& asset) {
  return asset.saved().method.empty() || !asset.method().empty();
}

bool isKnownConvention(const SavedAsset& saved) {
  return conventionFromFile(saved.convention) == saved.convention;
}

Currency sumOf(const std::vector<Currency>& amounts) {
  Currency sum;
  for (const Currency amount : amounts) sum += amount;
  return sum;
}

/// The findings on one asset.
class AssetCheck {
 public:
  AssetCheck(const RegisterOfAssets& assets, const ReportAsset& asset,
             std::vector<Finding>& findings)
      : assets_(assets), asset_(asset), saved_(asset.saved()), findings_(findings) {}

  void look() {
    lookAtValues();
    lookAtAmounts();
    lookAtUnits();
    lookAtFiscalYearEnd();
    if (saved_.method.empty()) add(warning, "No method was chosen, so it has no amounts.");
    lookAtFarDate();
  }

 private:
  void add(Severity severity, std::string text) {
    findings_.push_back({severity, saved_.number, saved_.id, std::move(text)});
  }

  void lookAtValues() {
    for (const std::string& value : saved_.unreadable) add(error, value);
    if (saved_.salvage > saved_.basis) {
      add(error, "Its salvage value of " + formatExactMoney(saved_.salvage) +
                     " is above its basis of " + formatExactMoney(saved_.basis) + ".");
    }
    if (!saved_.method.empty() && saved_.life == 0) add(error, "Its useful life is 0.");
    if (!saved_.method.empty() && saved_.basis == Currency()) add(error, "Its basis is 0.");
    if (!isKnownMethod(asset_)) {
      add(error, "\"" + saved_.method + "\" is not a depreciation method; it counts as none.");
    }
    if (!isKnownConvention(saved_)) {
      add(error, "\"" + saved_.convention + "\" is not a prorating convention; days are counted.");
    }
    if (!saved_.disposed.isNone() && saved_.disposed < saved_.placed_in_service) {
      add(error, "It was disposed of on " + saved_.disposed.toText() +
                     ", before it was placed in service on " + saved_.placed_in_service.toText() +
                     ".");
    }
  }

  void lookAtAmounts() {
    const std::string_view method = asset_.method();
    if (method.empty()) return;
    const auto today = calculatedToday(asset_);
    if (isUnitsOfProduction(method)) {
      const Currency rate = amountAt(saved_.amounts, 0);
      if (!today || today->rate != rate) tellOfRate(rate, today ? today->rate : Currency());
      if (rate == Currency()) add(warning, "Its rate per unit of production is 0.");
      return;
    }
    compareWith(today ? *scheduleBy(method, *today) : std::vector<Currency>());
    lookAtSum(method);
  }

  void tellOfRate(Currency saved, Currency calculated) {
    add(error, "The rate per unit of " + formatRate(saved) + " is saved; today " +
                   formatRate(calculated) + " is calculated. Recalculate and save.");
  }

  void compareWith(const std::vector<Currency>& calculated) {
    std::vector<int> years;
    for (std::size_t k = 0; k < saved_.amounts.size(); ++k) {
      if (saved_.amounts[k] != amountAt(calculated, k)) {
        years.push_back(asset_.firstYear() + static_cast<int>(k));
      }
    }
    if (years.empty()) return;
    const auto first = static_cast<std::size_t>(years.front() - asset_.firstYear());
    add(error, "The amount of " + fiscalYearName(years.front()) + " is saved as " +
                   formatExactMoney(saved_.amounts[first]) + "; today " +
                   formatExactMoney(amountAt(calculated, first)) + " is calculated. " +
                   (years.size() == 1 ? "" : "In all, " + yearsText(years) + " differ. ") +
                   "Recalculate and save.");
  }

  void lookAtSum(std::string_view method) {
    const Currency sum = sumOf(saved_.amounts);
    const Currency base = saved_.basis - saved_.salvage;
    if (method == method_double_declining_balance) {
      if (sum < base) {
        add(note, "Double declining balance stops " + formatExactMoney(base - sum) +
                      " above the salvage value.");
      }
    } else if (sum != base) {
      add(error, "Its amounts sum to " + formatExactMoney(sum) + "; basis less salvage value is " +
                     formatExactMoney(base) + ".");
    }
  }

  void lookAtUnits() {
    if (!isUnitsOfProduction(asset_.method())) return;
    if (const auto years = yearsWithoutUnits(); !years.empty()) {
      add(warning, "No units were entered for " + yearsText(years) + ".");
    }
    double produced = 0;
    for (const auto& [year, units] : saved_.units) produced += units;
    const double capacity = tryNumberFromText(saved_.capacity).value_or(0);
    if (produced > capacity) {
      add(warning, formatWhole(produced) + " units were produced, more than the capacity of " +
                       formatWhole(capacity) + ".");
    }
  }

  /// Of the years that have ended, up to the disposal and as long as something is left.
  [[nodiscard]] std::vector<int> yearsWithoutUnits() const {
    std::vector<int> missing;
    if (asset_.firstYear() > last_report_year) return missing;
    const AssetFiscalYears years(saved_.placed_in_service, saved_.fiscal_year_end);
    const int last = std::min(asset_.disposalYear().value_or(last_report_year), last_report_year);
    Currency left = saved_.basis - saved_.salvage;
    for (int year = years.first(); year <= last && years.lastDay(year) < assets_.today; ++year) {
      if (left <= Currency()) break;
      if (!saved_.units.contains(year)) missing.push_back(year);
      left -= asset_.amount(year);
    }
    return missing;
  }

  void lookAtFiscalYearEnd() {
    const auto own = saved_.fiscal_year_end.parts();
    const auto company = assets_.years.lastDay(assets_.years.of(assets_.today)).parts();
    if (own.month == 2 && own.day == 29) {
      add(warning, "Its fiscal year ends on February 29, which most years do not have.");
    }
    const bool same_day = own.day == company.day || (own.month == 2 && own.day >= 28);
    if (own.month == company.month && same_day) return;
    add(warning, "Its fiscal year ends on " + saved_.fiscal_year_end.monthName() + ' ' +
                     std::to_string(own.day) + ", not with the company's.");
  }

  void lookAtFarDate() {
    const Date placed = saved_.placed_in_service;
    const bool is_far = placed < assets_.today.plusYears(-years_from_today) ||
                        placed > assets_.today.plusYears(years_from_today);
    if (!is_far) return;
    add(note,
        "It was placed in service more than 50 years from today; the entry form empties "
        "such a date when you leave it.");
  }

  const RegisterOfAssets& assets_;
  const ReportAsset& asset_;
  const SavedAsset& saved_;
  std::vector<Finding>& findings_;
};

/// Every text that an earlier asset has, too.
void findTwice(const RegisterOfAssets& assets, std::string SavedAsset::*text, const char* what,
               std::vector<Finding>& findings) {
  std::map<std::string_view, std::int32_t> owners;
  for (const ReportAsset& asset : assets.assets) {
    const SavedAsset& saved = asset.saved();
    if ((saved.*text).empty()) continue;
    const auto [owner, is_new] = owners.emplace(saved.*text, saved.number);
    if (is_new) continue;
    findings.push_back({warning, saved.number, saved.id,
                        "Asset " + std::to_string(owner->second) + " has the same " + what +
                            ", \"" + saved.*text + "\"."});
  }
}

void findStrangeUnits(const RegisterOfAssets& assets, std::vector<Finding>& findings) {
  for (const std::int32_t number : assets.units_not_known) {
    const auto at = static_cast<std::size_t>(number - 1);
    const std::string id = at < assets.assets.size() ? assets.assets[at].saved().id : std::string();
    findings.push_back({error, number, id,
                        "Units were entered for another asset under this number; they do not "
                        "count."});
  }
}

void findUnprinted(const RegisterOfAssets& assets, std::vector<Finding>& findings) {
  const std::size_t count = assets.assets.size();
  for (std::size_t i = count - std::min(assets.assets_not_printed, count); i < count; ++i) {
    const SavedAsset& saved = assets.assets[i].saved();
    findings.push_back({note, saved.number, saved.id,
                        "The register's printed pages leave it out; the report \"All fiscal "
                        "years\" has it."});
  }
}

std::string countsText(const std::vector<Finding>& findings) {
  std::array<std::size_t, severities.size()> counts{};
  for (const Finding& finding : findings) ++counts[finding.severity];
  std::string text;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (i > 0) text += i + 1 < counts.size() ? ", " : " and ";
    text += formatWhole(static_cast<double>(counts[i])) + ' ' + std::string(severities[i]) +
            (counts[i] == 1 ? "" : "s");
  }
  return text + ".";
}

std::vector<Finding> findingsIn(const RegisterOfAssets& assets) {
  std::vector<Finding> findings;
  for (const ReportAsset& asset : assets.assets) AssetCheck(assets, asset, findings).look();
  findTwice(assets, &SavedAsset::id, "ID", findings);
  findTwice(assets, &SavedAsset::serial, "serial number", findings);
  findStrangeUnits(assets, findings);
  findUnprinted(assets, findings);
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
    return std::pair(a.number, a.severity) < std::pair(b.number, b.severity);
  });
  return findings;
}

}  // namespace

CheckedRegister checkReport(const RegisterOfAssets& assets) {
  const std::vector<Finding> findings = findingsIn(assets);
  Table table({{"severity", "Severity", ColumnKind::text},
               {"n", "N", ColumnKind::whole},
               {"id", "Asset ID", ColumnKind::text},
               {"finding", "Finding", ColumnKind::text}});
  bool has_errors = false;
  for (const Finding& finding : findings) {
    has_errors = has_errors || finding.severity == error;
    table.add({table.text(severities[finding.severity]), finding.number, table.text(finding.id),
               table.text(finding.text)});
  }
  Report report{.title = "Register check",
                .covers = coverLine(assets, longDate(assets.today)),
                .tables = {std::move(table)}};
  report.notes.push_back(countsText(findings));
  return {std::move(report), has_errors};
}

}  // namespace depcalc
