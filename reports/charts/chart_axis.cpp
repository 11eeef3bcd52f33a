#include "reports/charts/chart_axis.h"

#include <algorithm>
#include <array>

#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr std::int64_t ticks_per_unit = Currency::ticks_per_unit;
constexpr std::int64_t million = 1'000'000;

/// The one above `step` in 1, 2, 5, 10, 20, …
std::int64_t nextStep(std::int64_t step) {
  std::int64_t power = 1;
  while (step / power >= 10) power *= 10;
  return step / power == 2 ? step / 2 * 5 : step * 2;
}

/// Steps from 0 down to `least` or beyond, and up to `most` or beyond.
std::int64_t stepsDown(std::int64_t least, std::int64_t step) {
  return least / step - static_cast<std::int64_t>(least % step != 0);
}
std::int64_t stepsUp(std::int64_t most, std::int64_t step) {
  return most / step + static_cast<std::int64_t>(most % step != 0);
}

struct Unit {
  std::int64_t size;
  const char* sign;
};
constexpr std::array<Unit, 3> units{
    {{million * million, "T"}, {1000 * million, "B"}, {million, "M"}}};

}  // namespace

ChartAxis chartAxis(Currency least, Currency most, int intervals) {
  const std::int64_t low = std::min<std::int64_t>(0, least.ticks());
  const std::int64_t high = std::max<std::int64_t>(0, most.ticks());
  if (low == high) return {0, 1, {Currency()}, Currency::fromTicks(ticks_per_unit)};
  const int allowed = std::max(2, intervals) + (low < 0 && high > 0 ? 2 : 0);
  std::int64_t step = 1;
  while (static_cast<double>(stepsUp(high, step)) - static_cast<double>(stepsDown(low, step)) >
         allowed) {
    step = nextStep(step);
  }
  ChartAxis axis{.ticks = {}, .step = Currency::fromTicks(step)};
  const auto amount = [step](std::int64_t n) {
    return static_cast<double>(n) * static_cast<double>(step) / ticks_per_unit;
  };
  axis.low = amount(stepsDown(low, step));
  axis.high = amount(stepsUp(high, step));
  for (std::int64_t n = stepsDown(low, step); n <= stepsUp(high, step); ++n) {
    std::int64_t ticks = 0;
    if (!__builtin_mul_overflow(n, step, &ticks)) axis.ticks.push_back(Currency::fromTicks(ticks));
  }
  return axis;
}

std::string tickText(const ChartAxis& axis, Currency tick) {
  for (const Unit& unit : units) {
    if (axis.step.ticks() < unit.size * ticks_per_unit) continue;
    if (tick == Currency()) return "0";
    return formatWhole(static_cast<double>(tick.ticks() / (unit.size * ticks_per_unit))) +
           unit.sign;
  }
  return axis.step.ticks() % ticks_per_unit == 0 ? formatWhole(tick.toDouble())
                                                 : formatExactMoney(tick);
}

}  // namespace depcalc
