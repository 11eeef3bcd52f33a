// Sizes as OLE has them: in hundredths of a millimetre.
#pragma once

#include <windows.h>

namespace depcalc::windows {

/// 2540 to the inch, as 1440 twips.
SIZEL himetricOfTwips(int width, int height);
/// Negative sizes, and sizes beyond every screen: E_INVALIDARG, as ComFailure.
SIZE twipsOfHimetric(const SIZEL& extent);

}  // namespace depcalc::windows
