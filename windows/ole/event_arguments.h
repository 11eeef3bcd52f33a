// What goes with an event, and what comes back.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <string>

#include "register/dep_calc_view_events.h"
#include "values/date.h"

namespace depcalc::windows {

/// An argument that the sink may set: made of the value as it is, `take` reads it afterwards. What
/// a sink puts there and is none of the type: error 13.
class TextReference {
 public:
  explicit TextReference(const std::string& text);
  ~TextReference();
  TextReference(const TextReference&) = delete;
  TextReference& operator=(const TextReference&) = delete;
  [[nodiscard]] VARIANTARG argument();
  [[nodiscard]] std::string take() const;

 private:
  BSTR text_;
};

class DateReference {
 public:
  explicit DateReference(Date day);
  [[nodiscard]] VARIANTARG argument();
  [[nodiscard]] Date take() const;

 private:
  DATE day_;
};

class FlagReference {
 public:
  explicit FlagReference(bool flag) : flag_(flag ? VARIANT_TRUE : VARIANT_FALSE) {}
  [[nodiscard]] VARIANTARG argument();
  [[nodiscard]] bool take() const { return flag_ != VARIANT_FALSE; }

 private:
  VARIANT_BOOL flag_;
};

class RecordReference {
 public:
  explicit RecordReference(const CalculateDepPtr& record);
  ~RecordReference();
  RecordReference(const RecordReference&) = delete;
  RecordReference& operator=(const RecordReference&) = delete;
  [[nodiscard]] VARIANTARG argument();
  [[nodiscard]] CalculateDepPtr take() const;

 private:
  IDispatch* object_;
};

/// An array of records, empty slots as null. The sink may put an array of objects or of Variants.
class RecordsReference {
 public:
  explicit RecordsReference(const CalculateDepArray& records);
  ~RecordsReference();
  RecordsReference(const RecordsReference&) = delete;
  RecordsReference& operator=(const RecordsReference&) = delete;
  [[nodiscard]] VARIANTARG argument();
  [[nodiscard]] CalculateDepArray take() const;

 private:
  SAFEARRAY* array_;
};

/// Arguments that the sink may set in place, and one that it may not.
VARIANTARG integerReference(std::int16_t& value);
VARIANTARG numberReference(double& value);
VARIANTARG integerArgument(std::int16_t value);

}  // namespace depcalc::windows
