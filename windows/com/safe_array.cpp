#include "windows/com/safe_array.h"

#include <algorithm>
#include <new>

#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

SAFEARRAY* newArray(VARTYPE type, std::size_t count) {
  SAFEARRAY* made = SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

}  // namespace

SAFEARRAY* arrayOfAmounts(std::span<const Currency> amounts) {
  SAFEARRAY* made = newArray(VT_CY, amounts.size());
  std::transform(amounts.begin(), amounts.end(), ArrayView<CY>(*made).items().begin(), cyFrom);
  return made;
}

SAFEARRAY* variantsOfAmounts(SAFEARRAY& amounts) {
  const ArrayView<CY> given(amounts);
  SAFEARRAY* made = newArray(VT_VARIANT, given.items().size());
  const ArrayView<VARIANT> variants(*made);
  for (std::size_t i = 0; i < given.items().size(); ++i) {
    V_VT(&variants.items()[i]) = VT_CY;
    V_CY(&variants.items()[i]) = given.items()[i];
  }
  return made;
}

}  // namespace depcalc::windows
