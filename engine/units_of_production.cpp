#include "engine/units_of_production.h"

#include "values/rounding.h"

namespace depcalc {

Currency unitsOfProduction(Currency depreciable_base, double capacity) {
  if (capacity == 0.0) return {};
  return Currency::fromDouble(divide(depreciable_base.toDouble(), capacity));
}

}  // namespace depcalc
