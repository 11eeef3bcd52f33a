#include "windows/com/variant_value.h"

#include <cmath>
#include <utility>

#include "values/number_text.h"
#include "values/rounding.h"
#include "values/text.h"
#include "windows/com/com_call.h"
#include "windows/com/com_text.h"

namespace depcalc::windows {
namespace {

Date today() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return Date::strict(now.wYear, now.wMonth, now.wDay);
}

std::string textOf(const VARIANT& source) { return textFromBstr(V_BSTR(&source)); }

bool boolFromText(const std::string& text) {
  if (equalIgnoringCase(text, "True")) return true;
  if (equalIgnoringCase(text, "False")) return false;
  return numberFromText(text) != 0;
}

double numberOf(const VARIANT& source) {
  switch (V_VT(&source)) {
    case VT_EMPTY:
      return 0;
    case VT_I1:
      return V_I1(&source);
    case VT_UI1:
      return V_UI1(&source);
    case VT_I2:
      return V_I2(&source);
    case VT_UI2:
      return V_UI2(&source);
    case VT_I4:
    case VT_INT:
      return V_I4(&source);
    case VT_UI4:
    case VT_UINT:
      return V_UI4(&source);
    case VT_I8:
      return static_cast<double>(V_I8(&source));
    case VT_UI8:
      return static_cast<double>(V_UI8(&source));
    case VT_R4:
      return V_R4(&source);
    case VT_R8:
      return V_R8(&source);
    case VT_CY:
      return currencyFrom(V_CY(&source)).toDouble();
    case VT_DATE:
      return V_DATE(&source);
    case VT_BOOL:
      return V_BOOL(&source) == VARIANT_FALSE ? 0 : -1;
    case VT_BSTR:
      return numberFromText(textOf(source));
    default:
      throw RuntimeError::typeMismatch();
  }
}

/// Decimal is the one type that is read through the system, without any language.
double numberOrDecimal(const VARIANT& source) {
  if (V_VT(&source) != VT_DECIMAL) return numberOf(source);
  DECIMAL decimal = V_DECIMAL(&source);
  double number = 0;
  passed(VarR8FromDec(&decimal, &number));
  return number;
}

Currency currencyOf(const VARIANT& source) {
  switch (V_VT(&source)) {
    case VT_CY:
      return currencyFrom(V_CY(&source));
    case VT_BSTR:
      return Currency::fromText(textOf(source));
    default:
      return Currency::fromDouble(numberOrDecimal(source));
  }
}

Date dateOf(const VARIANT& source) {
  if (V_VT(&source) == VT_BSTR) return Date::fromText(textOf(source), today());
  return dayFrom(numberOrDecimal(source));
}

std::string plainTextOf(const VARIANT& source) {
  switch (V_VT(&source)) {
    case VT_EMPTY:
      return {};
    case VT_BSTR:
      return textOf(source);
    case VT_CY:
      return currencyFrom(V_CY(&source)).toText();
    case VT_DATE:
      return dayFrom(V_DATE(&source)).toText();
    case VT_BOOL:
      return V_BOOL(&source) == VARIANT_FALSE ? "False" : "True";
    default:
      return numberToText(numberOrDecimal(source));
  }
}

bool boolOf(const VARIANT& source) {
  return V_VT(&source) == VT_BSTR ? boolFromText(textOf(source)) : numberOrDecimal(source) != 0;
}

IUnknown* objectOf(const VARIANT& source, REFIID id) {
  if (V_VT(&source) == VT_EMPTY || V_VT(&source) == VT_NULL) return nullptr;
  if (V_VT(&source) != VT_DISPATCH && V_VT(&source) != VT_UNKNOWN)
    throw RuntimeError::typeMismatch();
  if (V_UNKNOWN(&source) == nullptr) return nullptr;
  void* object = nullptr;
  if (FAILED(V_UNKNOWN(&source)->QueryInterface(id, &object))) throw RuntimeError::typeMismatch();
  return static_cast<IUnknown*>(object);
}

void convertDirect(const VARIANT& source, VARTYPE wanted, VARIANT& target) {
  switch (wanted) {
    case VT_I2:
      V_I2(&target) = toInteger16HalfEven(numberOrDecimal(source));
      break;
    case VT_I4:
    case VT_INT:
      V_I4(&target) = toLong32HalfEven(numberOrDecimal(source));
      break;
    case VT_R8:
      V_R8(&target) = numberOrDecimal(source);
      break;
    case VT_CY:
      V_CY(&target) = cyFrom(currencyOf(source));
      break;
    case VT_DATE:
      V_DATE(&target) = dateFrom(dateOf(source));
      break;
    case VT_BSTR:
      V_BSTR(&target) = newBstr(plainTextOf(source));
      break;
    case VT_BOOL:
      V_BOOL(&target) = boolOf(source) ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case VT_DISPATCH:
      V_UNKNOWN(&target) = objectOf(source, IID_IDispatch);
      break;
    case VT_UNKNOWN:
      V_UNKNOWN(&target) = objectOf(source, IID_IUnknown);
      break;
    default:
      throw RuntimeError::typeMismatch();
  }
  V_VT(&target) = wanted;
}

}  // namespace

CY cyFrom(Currency amount) {
  CY cy;
  cy.int64 = amount.ticks();
  return cy;
}

Currency currencyFrom(CY amount) { return Currency::fromTicks(amount.int64); }

DATE dateFrom(Date day) { return day.dayNumber(); }

Date dayFrom(DATE date) {
  constexpr double beyond_every_date = 1e7;
  if (!(std::fabs(date) < beyond_every_date)) throw RuntimeError::invalidCall();
  return Date::fromDayNumber(static_cast<std::int64_t>(std::trunc(date)));
}

void convertVariant(const VARIANT& source, VARTYPE wanted, VARIANT& target) {
  Variant direct;
  passed(VariantCopyInd(&direct.get(), const_cast<VARIANT*>(&source)));
  VariantInit(&target);
  if (wanted == VT_VARIANT) {
    std::swap(target, direct.get());
  } else {
    convertDirect(direct.get(), wanted, target);
  }
}

}  // namespace depcalc::windows
