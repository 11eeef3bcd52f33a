// Works out the expressions of explanations anew.
#pragma once

#include <optional>
#include <string_view>

namespace depcalc {

/// What `expression` comes to: plain numbers, + - * / ( ), round2() and currency(), from left to
/// right on doubles. None for any other text.
std::optional<double> evaluated(std::string_view expression);

}  // namespace depcalc
