#include "windows/host/stored_variant.h"

#include <cmath>
#include <limits>
#include <optional>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/host/find_member.h"

namespace depcalc {
namespace {

StoredValue ofWhole(std::int64_t number) {
  using Integer = std::numeric_limits<std::int16_t>;
  if (number < Integer::min() || number > Integer::max()) {
    return StoredValue::real(static_cast<double>(number));
  }
  return StoredValue::integer(static_cast<std::int16_t>(number));
}

StoredValue ofDate(double day_and_time) {
  constexpr double beyond_every_date = 4'000'000;
  if (!(std::fabs(day_and_time) < beyond_every_date)) throw RuntimeError::invalidCall();
  return StoredValue::date(Date::fromDayNumber(static_cast<std::int64_t>(day_and_time)));
}

/// The types that only other hosts than ours use.
std::optional<StoredValue> ofForeignNumber(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_I1:
      return ofWhole(static_cast<signed char>(variant.cVal));
    case VT_UI1:
      return ofWhole(variant.bVal);
    case VT_UI2:
      return ofWhole(variant.uiVal);
    case VT_I4:
    case VT_INT:
      return ofWhole(variant.lVal);
    case VT_UI4:
    case VT_UINT:
      return ofWhole(variant.ulVal);
    case VT_I8:
      return ofWhole(variant.llVal);
    case VT_UI8:
      return variant.ullVal > 32'767 ? StoredValue::real(static_cast<double>(variant.ullVal))
                                     : ofWhole(static_cast<std::int64_t>(variant.ullVal));
    case VT_R4:
      return StoredValue::real(variant.fltVal);
    case VT_BOOL:
      return ofWhole(variant.boolVal == VARIANT_FALSE ? 0 : -1);
    default:
      return std::nullopt;
  }
}

StoredValue ofOther(const VARIANT& variant) {
  if (const auto number = ofForeignNumber(variant)) return *number;
  OwnedVariant converted;
  auto* source = const_cast<VARIANT*>(&variant);
  const bool readable = variant.vt == VT_DECIMAL || (variant.vt & VT_BYREF) != 0;
  if (!readable) throw RuntimeError::typeMismatch();
  const HRESULT done = variant.vt == VT_DECIMAL
                           ? VariantChangeTypeEx(converted.out(), source, host_language, 0, VT_R8)
                           : VariantCopyInd(converted.out(), source);
  if (FAILED(done) || (converted.type() & VT_BYREF) != 0) throw RuntimeError::typeMismatch();
  return storedValueOf(converted.get());
}

}  // namespace

OwnedVariant variantOf(const StoredValue& value) {
  OwnedVariant made;
  VARIANT& variant = *made.out();
  switch (value.type()) {
    case StoredValue::Type::empty:
      break;
    case StoredValue::Type::integer:
      variant.iVal = value.get<std::int16_t>();
      variant.vt = VT_I2;
      break;
    case StoredValue::Type::real:
      variant.dblVal = value.get<double>();
      variant.vt = VT_R8;
      break;
    case StoredValue::Type::currency:
      variant.cyVal.int64 = value.get<Currency>().ticks();
      variant.vt = VT_CY;
      break;
    case StoredValue::Type::date:
      variant.date = value.get<Date>().dayNumber();
      variant.vt = VT_DATE;
      break;
    case StoredValue::Type::text:
      variant.bstrVal = newBstr(value.get<std::string>());
      variant.vt = VT_BSTR;
      break;
  }
  return made;
}

StoredValue storedValueOf(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_I2:
      return StoredValue::integer(variant.iVal);
    case VT_R8:
      return StoredValue::real(variant.dblVal);
    case VT_CY:
      return StoredValue::currency(Currency::fromTicks(variant.cyVal.int64));
    case VT_DATE:
      return ofDate(variant.date);
    case VT_BSTR:
      return StoredValue::text(textFromBstr(variant.bstrVal));
    default:
      return ofOther(variant);
  }
}

}  // namespace depcalc
