// What a user may want to do next, said in a line beside the calculator. No toolkit is in it.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace depcalc::desktop {

enum class ShownScreen : std::uint8_t { none, form, comparison, assets };

/// Where the user is. The last three are of the asset that is shown, or selected in the register.
struct UserState {
  ShownScreen screen = ShownScreen::none;
  int assets = 0;               ///< saved in the company
  bool sample = false;          ///< the company is a sample
  bool on_saved_asset = false;  ///< it is one of the saved assets
  std::string method = {};      ///< as records keep it; "" for none
  bool has_capacity = false;    ///< a production capacity above 0
};

enum class Hint : std::uint8_t {
  sample_company,
  first_asset_form,
  first_asset_register,
  compare_first,
  choose_method,
  next_asset,
  no_method,
  no_capacity,
};

/// What is said, and where the guide says more.
struct NextStep {
  Hint hint;
  std::string_view key;  ///< what a dismissed hint is remembered by
  std::string_view text;
  std::string_view page;  ///< of the guide, with the place on it
};

/// All of them, in the order of Hint.
[[nodiscard]] std::span<const NextStep> nextSteps();

/// The first that applies and is not `dismissed`; null where the user needs none.
[[nodiscard]] const NextStep* nextStep(const UserState& state,
                                       const std::function<bool(Hint)>& dismissed);

}  // namespace depcalc::desktop
