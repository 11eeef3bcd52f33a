// Arrays.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <span>

#include "values/currency.h"
#include "windows/com/com_call.h"

namespace depcalc::windows {

/// A new array of money from element 0 on, which its receiver destroys. No amounts: an array
/// without elements. No memory: std::bad_alloc.
SAFEARRAY* arrayOfAmounts(std::span<const Currency> amounts);
/// An array of money as one of Variants.
SAFEARRAY* variantsOfAmounts(SAFEARRAY& amounts);

/// Looks into an array for as long as it lives.
template <typename T>
class ArrayView {
 public:
  /// Not one-dimensional, or in use elsewhere: ComFailure.
  explicit ArrayView(SAFEARRAY& array) : array_(array) {
    if (SafeArrayGetDim(&array) != 1) throw ComFailure(DISP_E_TYPEMISMATCH);
    passed(SafeArrayAccessData(&array, &data_));
  }
  ~ArrayView() { SafeArrayUnaccessData(&array_); }
  ArrayView(const ArrayView&) = delete;
  ArrayView& operator=(const ArrayView&) = delete;

  [[nodiscard]] std::span<T> items() const {
    return {static_cast<T*>(data_), array_.rgsabound[0].cElements};
  }

 private:
  SAFEARRAY& array_;
  void* data_ = nullptr;
};

}  // namespace depcalc::windows
