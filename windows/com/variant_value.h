// Values that come in Variants, read as the calculator reads them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

#include "values/currency.h"
#include "values/date.h"

namespace depcalc::windows {

/// A Variant that is cleared at its end.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  ~Variant() { VariantClear(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  [[nodiscard]] VARIANT& get() { return value_; }

 private:
  VARIANT value_;
};

CY cyFrom(Currency amount);
Currency currencyFrom(CY amount);
/// The day, as COM counts days: the calculator's day numbers are the same.
DATE dateFrom(Date day);
/// The day of a date with a time of day, which is dropped. Not finite, or out of range: error 5.
Date dayFrom(DATE date);

/// `source` as a value of the automation type `wanted` (the number types, VT_CY, VT_DATE, VT_BSTR,
/// VT_BOOL, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT), in `target`, which is overwritten. By the
/// calculator's rules whatever the system's language: numbers and dates in texts as users type
/// them, halves to even. What cannot be read so is error 13, a number out of range error 6.
/// `source` may be by reference.
void convertVariant(const VARIANT& source, VARTYPE wanted, VARIANT& target);

}  // namespace depcalc::windows
