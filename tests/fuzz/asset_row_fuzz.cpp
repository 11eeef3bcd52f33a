// Any bytes as the rows of an asset file: what is accepted is within the limits, and its
// schedules add up.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "cli/asset_reader.h"
#include "cli/schedules.h"
#include "tests/fuzz/property.h"
#include "tests/support/text_source.h"
#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::string_view header =
    "id,name,placed_in_service,fiscal_year_end,life,convention,basis,salvage,capacity,method\n";

Currency sum(const std::vector<Currency>& amounts) {
  Currency total;
  for (const Currency amount : amounts) total += amount;
  return total;
}

void checkAsset(CalculateDep& asset) {
  const double life = asset.DepRecovery();
  const Currency base = asset.AssetBasis() - asset.AssetSalvage();
  mustHold(characterCount(asset.AssetID()) <= most_text_characters, "texts are short");
  mustHold(life >= 1 && life <= 50, "a life has 1 to 50 years");
  mustHold(asset.AssetSalvage() >= Currency() && base >= Currency(), "salvage is up to the basis");

  Schedules schedules;
  MethodBatch batch;
  batch.calculate(std::array{&asset});
  calculateSchedules(batch, 0, asset, schedules);
  mustHold(schedules.years >= 1 && schedules.years <= 51, "a schedule has 1 to 51 years");
  mustHold(schedules.straight_line.size() == schedules.years, "every year has an amount");
  mustHold(schedules.double_declining_balance.size() == schedules.years, "by every method");
  mustHold(sum(schedules.straight_line) == base, "straight line takes the whole base");
  mustHold(sum(schedules.sum_of_years_digits) == base, "sum of the years' digits, too");
  mustHold(sum(schedules.double_declining_balance) <= base, "double declining not more");
  mustHold(schedules.rate >= Currency(), "a rate is not negative");
}

void checkProblems(const std::vector<RowProblem>& problems) {
  mustHold(!problems.empty(), "what is refused has a reason");
  for (const RowProblem& problem : problems) {
    const std::string text = problemText("f", problem);
    const auto control = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    mustHold(std::none_of(text.begin(), text.end(), control), "messages are harmless");
  }
}

void check(const std::string& text, DateLimit limit) {
  TextSource source(text);
  const AssetRules rules{
      .today = Date::strict(2024, 2, 29),
      .date_limit = limit,
      .fiscal_year_end = Date::strict(2000, 12, 31),
  };
  AssetReader reader(source, {.with_method = true}, rules);
  mustHold(reader.begin(), "the header is good");
  CalculateDep asset;
  while (true) {
    switch (reader.next(asset)) {
      case AssetReader::Outcome::asset:
        checkAsset(asset);
        break;
      case AssetReader::Outcome::problems:
        checkProblems(reader.problems());
        break;
      default:
        return;
    }
  }
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text(depcalc::header);
  text.append(reinterpret_cast<const char*>(data), size);
  depcalc::check(text, depcalc::DateLimit::fifty_years);
  depcalc::check(text, depcalc::DateLimit::none);
  return 0;
}
