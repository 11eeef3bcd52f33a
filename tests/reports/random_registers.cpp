// random_registers SEED COUNT: prints a line of JSON for each of COUNT random registers: what is
// saved and what the reports say of it. reports_oracle.py says what they should.
#include <array>
#include <charconv>
#include <iostream>
#include <string>

#include "engine/method_results.h"
#include "reports/asset_card.h"
#include "reports/formats/csv.h"
#include "reports/journal.h"
#include "reports/register_check.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"
#include "tests/reports/random_register.h"
#include "values/json_text.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

using testing_support::Random;
using testing_support::someRegister;

// --- What is printed -----------------------------------------------------------------------------

std::string jsonString(std::string_view text) {
  std::string out;
  appendJsonString(out, text);
  return out;
}

std::string ticks(Currency amount) { return std::to_string(amount.ticks()); }

std::string amountsJson(const std::vector<Currency>& amounts) {
  std::string out = "[";
  for (const Currency amount : amounts) out += (out.size() > 1 ? "," : "") + ticks(amount);
  return out + "]";
}

std::string unitsJson(const UnitsByYear& units) {
  std::string out = "{";
  for (const auto& [year, number] : units) {
    out +=
        (out.size() > 1 ? ",\"" : "\"") + std::to_string(year) + "\":" + shortestNumberText(number);
  }
  return out + "}";
}

/// What is calculated today for the saved values, by the record itself.
std::string todayJson(const SavedAsset& saved) {
  const MethodResults results = testing_support::calculatedFor(saved);
  return "{\"SL\":" + amountsJson(results.straight_line) +
         ",\"SYD\":" + amountsJson(results.sum_of_years_digits) +
         ",\"DDB\":" + amountsJson(results.double_declining_balance) +
         ",\"UOP\":" + ticks(results.rate) + "}";
}

std::string assetJson(const SavedAsset& asset) {
  const auto text = [](const char* name, const std::string& value) {
    return ",\"" + std::string(name) + "\":" + jsonString(value);
  };
  return "{\"n\":" + std::to_string(asset.number) + text("id", asset.id) +
         text("name", asset.name) + text("serial", asset.serial) +
         text("department", asset.department) +
         text("placed", asset.placed_in_service.toIsoText()) +
         text("disposed", asset.disposed.isNone() ? "" : asset.disposed.toIsoText()) +
         ",\"proceeds\":" + ticks(asset.proceeds) + ",\"basis\":" + ticks(asset.basis) +
         ",\"salvage\":" + ticks(asset.salvage) + ",\"capacity\":" + asset.capacity +
         ",\"life\":" + shortestNumberText(asset.life) + text("convention", asset.convention) +
         text("year_end", asset.fiscal_year_end.toIsoText()) + text("method", asset.method) +
         ",\"amounts\":" + amountsJson(asset.amounts) + ",\"units\":" + unitsJson(asset.units) +
         ",\"today\":" + todayJson(asset) + "}";
}

class Line {
 public:
  Line(const RegisterOfAssets& assets, const std::vector<SavedAsset>& saved) : assets_(assets) {
    out_ = "{\"first_month\":" + std::to_string(assets.years.firstDay(2020).month()) +
           ",\"today\":" + jsonString(assets.today.toIsoText()) +
           ",\"start\":" + std::to_string(assets.start) +
           ",\"span\":" + std::to_string(assets.span) +
           ",\"not_printed\":" + std::to_string(assets.assets_not_printed) + ",\"not_known\":[";
    for (const std::int32_t number : assets.units_not_known) out_ += std::to_string(number);
    out_ += "],\"assets\":[";
    for (const SavedAsset& asset : saved) out_ += (asset.number > 1 ? "," : "") + assetJson(asset);
    out_ += "],\"reports\":{\"\":\"\"";
  }

  void add(const std::string& name, const Report& report) {
    out_ += ",\"" + name + "\":" + jsonString(csvReport(report, CsvFields(false)));
    for (const std::string& disproof : report.disproofs) {
      out_ += ",\"disproof " + name + "\":" + jsonString(disproof);
    }
  }

  void addAll(Random& random) {
    constexpr std::array<const char*, 4> groups{"none", "department", "method", "convention"};
    const int year = random.from(2013, 2030);
    for (int i = 0; i < 4; ++i) {
      const auto grouping = static_cast<Grouping>(i);
      const std::string by = std::string(" ") + groups[static_cast<std::size_t>(i)];
      for (const int each : {year, year + 1}) {
        const std::string of = ' ' + std::to_string(each) + by;
        add("schedule" + of, scheduleReport(assets_, each, grouping));
        add("rollforward" + of, rollforwardReport(assets_, each, grouping));
        add("journal" + of, journalReport(assets_, each, grouping, {}));
      }
      add("years - -" + by, yearsReport(assets_, rangeOfYears(assets_, {}, {}), grouping));
      const int from = year - random.below(4);
      add("years " + std::to_string(from) + ' ' + std::to_string(year) + by,
          yearsReport(assets_, rangeOfYears(assets_, from, year), grouping));
    }
    if (!assets_.assets.empty()) {
      const int number = random.from(1, static_cast<int>(assets_.assets.size()));
      add("asset " + std::to_string(number), *assetReport(assets_, number));
    }
    const CheckedRegister checked = checkReport(assets_);
    add("check " + std::to_string(checked.has_errors ? 1 : 0), checked.report);
  }

  [[nodiscard]] std::string text() const { return out_ + "}}\n"; }

 private:
  const RegisterOfAssets& assets_;
  std::string out_;
};

}  // namespace
}  // namespace depcalc

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::uint64_t seed = 0;
  int count = 0;
  const std::string_view seed_text(argv[1]);
  const std::string_view count_text(argv[2]);
  std::from_chars(seed_text.data(), seed_text.data() + seed_text.size(), seed);
  std::from_chars(count_text.data(), count_text.data() + count_text.size(), count);
  depcalc::testing_support::Random random(seed);
  for (int i = 0; i < count; ++i) {
    std::vector<depcalc::SavedAsset> saved;
    const depcalc::RegisterOfAssets assets = depcalc::testing_support::someRegister(random, saved);
    depcalc::Line line(assets, saved);
    line.addAll(random);
    std::cout << line.text();
  }
}
