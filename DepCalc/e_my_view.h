// The views of the calculator.
#pragma once

namespace depcalc {

enum eMyView {
  emv_ViewAll = 0,  ///< the register
  emv_Calc = 1,     ///< the entry form, step 1 of 2
  emv_Display = 2,  ///< the comparison, step 2 of 2
  emv_Print = 3,    ///< has no screen of its own
};

}  // namespace depcalc
