#include "desktop/guide/next_step.h"

#include <algorithm>
#include <array>

#include "engine/method.h"

namespace depcalc::desktop {
namespace {

/// Whoever has saved that many assets knows the way.
constexpr int beginners_assets = 3;

constexpr std::array steps{
    NextStep{Hint::sample_company, "sample_company",
             "This is a sample company to try things on. Change or delete what you like; File > "
             "New Company starts your own.",
             "first-company.html#sample"},
    NextStep{Hint::first_asset_form, "first_asset_form",
             "This company has no assets yet. Enter the first one: its date, useful life, basis "
             "and salvage value are needed. Then press Calculate.",
             "entering-assets.html"},
    NextStep{Hint::first_asset_register, "first_asset_register",
             "This company has no assets yet. Press New to enter the first one, or choose File > "
             "Import to bring in a list.",
             "entering-assets.html"},
    NextStep{Hint::compare_first, "compare_first",
             "Press Calculate to see the methods side by side. Save keeps the asset without a "
             "method and without amounts.",
             "entering-assets.html#save-or-calculate"},
    NextStep{Hint::choose_method, "choose_method",
             "Straight Line is marked to begin with. Choose the method you want, and press Save "
             "to keep it with its amounts.",
             "choosing-a-method.html"},
    NextStep{Hint::next_asset, "next_asset",
             "Your first asset is saved. Press New for the next one, or choose Reports > "
             "Depreciation Schedule to see what each year takes.",
             "year-end.html"},
    NextStep{Hint::no_method, "no_method",
             "This asset has no method yet, so it has no amounts. Press Edit and Calculate, choose "
             "a method, and save.",
             "choosing-a-method.html#no-method"},
    NextStep{Hint::no_capacity, "no_capacity",
             "Units of Production needs a production capacity. This asset has none, so its rate "
             "is 0. Press Edit to enter one, or choose another method.",
             "methods.html#units-of-production"},
};

bool isByUnitsWithoutCapacity(const UserState& state) {
  return countsAsUnitsOfProduction(state.method) && !state.has_capacity;
}

bool applies(Hint hint, const UserState& state) {
  const bool begins = state.assets < beginners_assets;
  const bool in_register = state.screen == ShownScreen::assets;
  switch (hint) {
    case Hint::no_capacity:
      return (state.screen == ShownScreen::comparison || (in_register && state.on_saved_asset)) &&
             isByUnitsWithoutCapacity(state);
    case Hint::no_method:
      return in_register && state.on_saved_asset && state.method.empty();
    case Hint::sample_company:
      return state.sample && state.screen != ShownScreen::none;
    case Hint::first_asset_form:
      return state.screen == ShownScreen::form && state.assets == 0;
    case Hint::first_asset_register:
      return in_register && state.assets == 0;
    case Hint::choose_method:
      return state.screen == ShownScreen::comparison && begins && !state.on_saved_asset;
    case Hint::compare_first:
      return state.screen == ShownScreen::form && begins && !state.on_saved_asset;
    case Hint::next_asset:
      return in_register && state.assets == 1;
  }
  return false;
}

/// What is amiss comes before what could be done.
constexpr std::array order{
    Hint::no_capacity,          Hint::no_method,     Hint::sample_company, Hint::first_asset_form,
    Hint::first_asset_register, Hint::choose_method, Hint::compare_first,  Hint::next_asset};
static_assert(order.size() == steps.size());

}  // namespace

std::span<const NextStep> nextSteps() { return steps; }

const NextStep* nextStep(const UserState& state, const std::function<bool(Hint)>& dismissed) {
  const auto* const found = std::find_if(order.begin(), order.end(), [&](Hint hint) {
    return applies(hint, state) && !dismissed(hint);
  });
  return found == order.end() ? nullptr : &steps[static_cast<std::size_t>(*found)];
}

}  // namespace depcalc::desktop
