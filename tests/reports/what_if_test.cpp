#include "reports/what_if.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace depcalc {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

SavedAsset truck() {
  SavedAsset asset;
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2023, 3, 31);
  asset.basis = Currency::fromText("38450");
  asset.salvage = Currency::fromText("4000");
  asset.life = 5;
  asset.convention = "1";
  asset.method = "SYD";
  asset.capacity = "150000";
  return asset;
}

std::vector<std::string> captionsOf(const SavedAsset& asset) {
  std::vector<std::string> captions;
  for (const WhatIfRow& row : whatIfRows(asset)) captions.push_back(whatIfCaption(row));
  return captions;
}

TEST(WhatIf, HasTheOtherConventionsLivesAndSalvageValues) {
  EXPECT_THAT(captionsOf(truck()),
              ElementsAre("As it is", "Full Year", "Full Month", "Half Month", "Actual Days",
                          "3 years", "4 years", "6 years", "7 years", "No salvage",
                          "Salvage 1,922.50", "Salvage 3,845.00", "Salvage 7,690.00"));
}

TEST(WhatIf, StaysWithinWhatTheFormTakes) {
  SavedAsset asset = truck();
  const auto lives = [&](double life) {
    asset.life = life;
    std::vector<std::string> texts;
    for (const WhatIfRow& row : whatIfRows(asset)) {
      if (row.changed == WhatIfField::life) texts.push_back(row.text);
    }
    return texts;
  };
  EXPECT_THAT(lives(1), ElementsAre("2", "3"));
  EXPECT_THAT(lives(2), ElementsAre("1", "3", "4"));
  EXPECT_THAT(lives(49), ElementsAre("47", "48", "50"));
  EXPECT_THAT(lives(50), ElementsAre("48", "49"));
  EXPECT_THAT(lives(2.5), ElementsAre("1", "2", "3", "4")) << "the form takes whole years";
  EXPECT_THAT(lives(9000), ElementsAre());
}

TEST(WhatIf, RepeatsNoSalvageValue) {
  SavedAsset asset = truck();
  asset.salvage = Currency();
  EXPECT_THAT(captionsOf(asset), Not(Contains("No salvage")));
  asset.basis = Currency::fromText("0.01");
  EXPECT_THAT(captionsOf(asset), Not(Contains("Salvage 0.00")));
}

TEST(WhatIf, SaysWhatTheFirstYearTakesAndTheTotal) {
  const auto rows = whatIfRows(truck());
  const WhatIfRow& as_it_is = rows[0];
  EXPECT_EQ(as_it_is.methods[1].first_year, Currency::fromText("5741.67"));
  EXPECT_EQ(as_it_is.methods[1].total, Currency::fromText("34450"));
  EXPECT_EQ(as_it_is.rate, Currency::fromText("0.2297"));
  const WhatIfRow& full_year = rows[1];
  EXPECT_EQ(full_year.methods[0].first_year, Currency::fromText("6890"));
  EXPECT_EQ(full_year.methods[2].first_year, Currency::fromText("15380"));
}

TEST(WhatIf, LeavesOutWhatCannotBeCalculated) {
  SavedAsset asset = truck();
  asset.life = -3;
  const auto rows = whatIfRows(asset);
  EXPECT_FALSE(rows[0].methods[0].first_year.has_value());
  EXPECT_FALSE(rows[0].methods[0].total.has_value());
}

}  // namespace
}  // namespace depcalc
