#include "engine/units_of_production.h"

#include "values/rounding.h"

namespace depcalc {

Currency unitsOfProduction(Currency basis, Currency salvage, double capacity) {
  if (capacity == 0.0) return {};
  return Currency::fromDouble(divide((basis - salvage).toDouble(), capacity));
}

}  // namespace depcalc
