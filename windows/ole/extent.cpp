#include "windows/ole/extent.h"

#include "windows/com/com_call.h"

namespace depcalc::windows {
namespace {

constexpr int himetric_per_inch = 2540;
constexpr int twips_per_inch = 1440;
constexpr LONG longest = 1'000'000;  // ten metres

int twips(LONG himetric) {
  if (himetric < 0 || himetric > longest) throw ComFailure(E_INVALIDARG);
  return MulDiv(static_cast<int>(himetric), twips_per_inch, himetric_per_inch);
}

}  // namespace

SIZEL himetricOfTwips(int width, int height) {
  return {MulDiv(width, himetric_per_inch, twips_per_inch),
          MulDiv(height, himetric_per_inch, twips_per_inch)};
}

SIZE twipsOfHimetric(const SIZEL& extent) { return {twips(extent.cx), twips(extent.cy)}; }

}  // namespace depcalc::windows
