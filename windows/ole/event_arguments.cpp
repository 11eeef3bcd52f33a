#include "windows/ole/event_arguments.h"

#include <oleauto.h>

#include <new>
#include <utility>

#include "values/runtime_error.h"
#include "windows/com/com_text.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant_value.h"
#include "windows/record/calculate_dep_object.h"

namespace depcalc::windows {
namespace {

VARIANTARG reference(VARTYPE type, void* place) {
  VARIANTARG argument;
  V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | type);
  V_BYREF(&argument) = place;
  return argument;
}

SAFEARRAY* arrayOfRecords(const CalculateDepArray& records) {
  SAFEARRAY* made = SafeArrayCreateVector(VT_DISPATCH, 0, static_cast<ULONG>(records.size()));
  if (made == nullptr) throw std::bad_alloc();
  const ArrayView<IDispatch*> objects(*made);
  for (std::size_t i = 0; i < records.size(); ++i) objects.items()[i] = objectOfRecord(records[i]);
  return made;
}

CalculateDepPtr recordOfVariant(const VARIANT& value) {
  Variant object;
  convertVariant(value, VT_UNKNOWN, object.get());
  return recordOfObject(V_UNKNOWN(&object.get()));
}

template <typename T, typename Read>
CalculateDepArray recordsOf(SAFEARRAY& array, Read read) {
  const ArrayView<T> items(array);
  CalculateDepArray records;
  for (T& item : items.items()) records.push_back(read(item));
  return records;
}

}  // namespace

TextReference::TextReference(const std::string& text) : text_(newBstr(text)) {}
TextReference::~TextReference() { SysFreeString(text_); }
VARIANTARG TextReference::argument() { return reference(VT_BSTR, &text_); }
std::string TextReference::take() const { return textFromBstr(text_); }

DateReference::DateReference(Date day) : day_(dateFrom(day)) {}
VARIANTARG DateReference::argument() { return reference(VT_DATE, &day_); }
Date DateReference::take() const { return dayFrom(day_); }

VARIANTARG FlagReference::argument() { return reference(VT_BOOL, &flag_); }

RecordReference::RecordReference(const CalculateDepPtr& record) : object_(objectOfRecord(record)) {}
RecordReference::~RecordReference() {
  if (object_ != nullptr) object_->Release();
}
VARIANTARG RecordReference::argument() { return reference(VT_DISPATCH, &object_); }
CalculateDepPtr RecordReference::take() const { return recordOfObject(object_); }

RecordsReference::RecordsReference(const CalculateDepArray& records)
    : array_(arrayOfRecords(records)) {}
RecordsReference::~RecordsReference() {
  if (array_ != nullptr) SafeArrayDestroy(array_);
}
VARIANTARG RecordsReference::argument() { return reference(VT_ARRAY | VT_DISPATCH, &array_); }

CalculateDepArray RecordsReference::take() const {
  if (array_ == nullptr) return {};
  VARTYPE type = VT_EMPTY;
  SafeArrayGetVartype(array_, &type);
  switch (type) {
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return recordsOf<IUnknown*>(*array_, recordOfObject);
    case VT_VARIANT:
      return recordsOf<VARIANT>(*array_, recordOfVariant);
    default:
      throw RuntimeError::typeMismatch();
  }
}

VARIANTARG integerReference(std::int16_t& value) { return reference(VT_I2, &value); }
VARIANTARG numberReference(double& value) { return reference(VT_R8, &value); }

VARIANTARG integerArgument(std::int16_t value) {
  VARIANTARG argument;
  V_VT(&argument) = VT_I2;
  V_I2(&argument) = value;
  return argument;
}

}  // namespace depcalc::windows
