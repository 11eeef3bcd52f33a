#include "desktop/window/user_state.h"

#include "desktop/window/calculator.h"
#include "values/number_text.h"

namespace depcalc::desktop {
namespace {

ShownScreen shownScreen(Calculator& calculator) {
  const UserControl* const screen = calculator.container().visibleScreen();
  if (screen == nullptr) return ShownScreen::none;
  if (screen == calculator.assetRegister()) return ShownScreen::assets;
  return screen->name() == "DepCalcDisplayCtl1" ? ShownScreen::comparison : ShownScreen::form;
}

}  // namespace

UserState userStateIn(Calculator& calculator, bool sample,
                      const std::function<std::optional<SavedAsset>(std::int32_t)>& saved) {
  UserState state;
  state.screen = shownScreen(calculator);
  state.assets = calculator.assetCount().value_or(0);
  state.sample = sample;
  const std::optional<int> number = calculator.currentAsset();
  state.on_saved_asset = number.has_value();
  const auto note = [&state](const std::string& method, const std::string& capacity) {
    state.method = method;
    state.has_capacity = tryNumberFromText(capacity).value_or(0) > 0;
  };
  if (state.screen != ShownScreen::assets) {
    const CalculateDepPtr record = calculator.container().CurrentRecord();
    if (record != nullptr) note(record->DepMethod(), record->AssetProdCap());
  } else if (number) {
    // The calculator's own record may be a blank one, whatever asset is selected.
    if (const auto asset = saved(*number)) note(asset->method, asset->capacity);
  }
  return state;
}

}  // namespace depcalc::desktop
