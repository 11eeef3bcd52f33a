// The hint that helps where a user is.
#include "desktop/guide/next_step.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "desktop/guide/guide_pages.h"

namespace depcalc::desktop {
namespace {

constexpr auto form = ShownScreen::form;
constexpr auto comparison = ShownScreen::comparison;
constexpr auto assets = ShownScreen::assets;

struct Case {
  const char* where;
  UserState state;
  std::optional<Hint> hint;
};

const Case cases[] = {
    {"no company", {}, {}},
    {"no screen in a sample", {.screen = ShownScreen::none, .sample = true}, {}},
    {"a blank form of an empty company", {.screen = form}, Hint::first_asset_form},
    {"an empty register", {.screen = assets}, Hint::first_asset_register},
    {"the second asset's form", {.screen = form, .assets = 1}, Hint::compare_first},
    {"the fourth asset's form", {.screen = form, .assets = 3}, {}},
    {"a saved asset's form", {.screen = form, .assets = 1, .on_saved_asset = true}, {}},
    {"the first comparison",
     {.screen = comparison, .assets = 0, .method = "SL"},
     Hint::choose_method},
    {"the fourth comparison", {.screen = comparison, .assets = 3, .method = "SL"}, {}},
    {"a saved asset's comparison",
     {.screen = comparison, .assets = 1, .on_saved_asset = true, .method = "SL"},
     {}},
    {"one asset", {.screen = assets, .assets = 1}, Hint::next_asset},
    {"two assets", {.screen = assets, .assets = 2}, {}},
    {"an asset without a method",
     {.screen = assets, .assets = 9, .on_saved_asset = true},
     Hint::no_method},
    {"no asset selected", {.screen = assets, .assets = 9}, {}},
    {"an asset with a method",
     {.screen = assets, .assets = 9, .on_saved_asset = true, .method = "DDB"},
     {}},
    {"units without a capacity, compared",
     {.screen = comparison, .assets = 9, .method = "UOP"},
     Hint::no_capacity},
    {"units without a capacity, saved in small letters",
     {.screen = assets, .assets = 9, .on_saved_asset = true, .method = "uop"},
     Hint::no_capacity},
    {"units with a capacity",
     {.screen = comparison, .assets = 9, .method = "UOP", .has_capacity = true},
     {}},
    {"units on the form",
     {.screen = form, .assets = 9, .on_saved_asset = true, .method = "UOP"},
     {}},
    {"a sample", {.screen = assets, .assets = 10, .sample = true}, Hint::sample_company},
    {"a sample's asset without a method",
     {.screen = assets, .assets = 10, .sample = true, .on_saved_asset = true},
     Hint::no_method},
};

TEST(NextStep, FollowsWhereTheUserIs) {
  for (const auto& [where, state, hint] : cases) {
    const NextStep* const step = nextStep(state, [](Hint) { return false; });
    ASSERT_EQ(step != nullptr, hint.has_value()) << where;
    if (step == nullptr) continue;
    EXPECT_EQ(step->hint, *hint) << where << ": " << step->text;
  }
}

TEST(NextStep, IsNeverSaidAgainOnceItIsDismissed) {
  for (const auto& [where, state, hint] : cases) {
    const NextStep* const next =
        nextStep(state, [&hint = hint](Hint each) { return hint.has_value() && each == *hint; });
    EXPECT_TRUE(next == nullptr || next->hint != *hint) << where;
    EXPECT_EQ(nextStep(state, [](Hint) { return true; }), nullptr) << where;
  }
}

TEST(NextStep, EveryHintHasACaseAKeyOfItsOwnAndAPage) {
  std::set<Hint> tried;
  for (const Case& each : cases) {
    if (each.hint) tried.insert(*each.hint);
  }
  std::set<std::string_view> keys;
  for (std::size_t i = 0; i < nextSteps().size(); ++i) {
    const NextStep& step = nextSteps()[i];
    EXPECT_EQ(step.hint, static_cast<Hint>(i));
    EXPECT_TRUE(tried.contains(step.hint)) << step.key;
    EXPECT_TRUE(keys.insert(step.key).second) << step.key;
    EXPECT_LT(step.text.size(), 170U) << "a line or two: " << step.text;
    const std::string_view file = step.page.substr(0, step.page.find('#'));
    EXPECT_TRUE(std::ranges::any_of(guidePages(), [&](const GuidePage& page) {
      return page.file == file;
    })) << step.page;
  }
}

}  // namespace
}  // namespace depcalc::desktop
