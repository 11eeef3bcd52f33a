#include "engine/units_produced.h"

namespace depcalc {

Currency amountOfUnits(double units, Currency rate, Currency left) {
  Silent nobody;
  return amountOfUnits(units, rate, left, nobody);
}

AmountsByYear amountsOfUnits(const UnitsByYear& units, Currency rate, Currency base, int first,
                             int last) {
  Silent nobody;
  return amountsOfUnits(units, rate, base, first, last, nobody);
}

}  // namespace depcalc
