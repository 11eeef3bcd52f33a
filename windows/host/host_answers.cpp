#include "windows/host/host_answers.h"

#include <cstring>

#include "values/runtime_error.h"
#include "windows/host/stored_variant.h"

namespace depcalc {
namespace {

/// A text is no answer where a number or a date is asked for.
StoredValue numberIn(const OwnedVariant& answer) {
  StoredValue value = storedValueOf(answer.get());
  if (value.type() == StoredValue::Type::text) throw RuntimeError::typeMismatch();
  return value;
}

/// An array that stays locked while its elements are read.
class LockedArray {
 public:
  explicit LockedArray(SAFEARRAY* array) : array_(array) {
    if (FAILED(SafeArrayLock(array_))) throw RuntimeError::typeMismatch();
  }
  ~LockedArray() { SafeArrayUnlock(array_); }
  LockedArray(const LockedArray&) = delete;
  LockedArray& operator=(const LockedArray&) = delete;

  [[nodiscard]] ULONG count() const { return array_->rgsabound[0].cElements; }
  /// Element `i`, as a VARIANT that borrows what it holds.
  [[nodiscard]] VARIANT element(ULONG i, VARTYPE type) const {
    const auto* at = static_cast<const BYTE*>(array_->pvData) + i * SafeArrayGetElemsize(array_);
    if (type == VT_VARIANT) return *reinterpret_cast<const VARIANT*>(at);
    VARIANT element{};
    element.vt = type;
    element.llVal = 0;
    std::memcpy(&element.llVal, at, SafeArrayGetElemsize(array_));
    return element;
  }

 private:
  SAFEARRAY* array_;
};

}  // namespace

bool booleanIn(const OwnedVariant& answer) { return numberIn(answer).asDouble() != 0.0; }

std::int32_t longIn(const OwnedVariant& answer) { return numberIn(answer).asLong(); }

Date dateIn(const OwnedVariant& answer) { return numberIn(answer).asDate(Date()); }

std::vector<StoredValue> elementsOf(const VARIANT& array) {
  constexpr unsigned array_bits = VT_ARRAY;
  const bool referred = (array.vt & VT_BYREF) != 0;
  SAFEARRAY* elements = referred ? *array.pparray : array.parray;
  if ((array.vt & array_bits) == 0 || elements == nullptr || SafeArrayGetDim(elements) != 1) {
    throw RuntimeError::typeMismatch();
  }
  const auto type = static_cast<VARTYPE>(array.vt & VT_TYPEMASK);
  if (type != VT_VARIANT && SafeArrayGetElemsize(elements) > sizeof(LONGLONG)) {
    throw RuntimeError::typeMismatch();
  }
  const LockedArray locked(elements);
  std::vector<StoredValue> values;
  for (ULONG i = 0; i < locked.count(); ++i)
    values.push_back(storedValueOf(locked.element(i, type)));
  return values;
}

std::vector<std::string> textsIn(const OwnedVariant& answer) {
  std::vector<std::string> texts;
  for (const StoredValue& value : elementsOf(answer.get())) texts.push_back(value.asText());
  return texts;
}

OwnedVariant booleanVariant(bool value) {
  OwnedVariant made;
  VARIANT& variant = *made.out();
  variant.vt = VT_BOOL;
  variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return made;
}

}  // namespace depcalc
