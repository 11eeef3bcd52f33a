#include "engine/units_of_production.h"

namespace depcalc {

Currency unitsOfProduction(Currency basis, Currency salvage, double capacity) {
  Silent nobody;
  return unitsOfProduction(basis, salvage, capacity, nobody);
}

}  // namespace depcalc
