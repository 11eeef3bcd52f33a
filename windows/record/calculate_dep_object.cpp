#include "windows/record/calculate_dep_object.h"

#include <memory>
#include <utility>

#include "windows/com/com_call.h"
#include "windows/com/com_object.h"
#include "windows/com/com_ptr.h"
#include "windows/com/com_text.h"
#include "windows/com/dispatch.h"
#include "windows/com/safe_array.h"
#include "windows/com/type_library.h"
#include "windows/com/variant_value.h"
#include "windows/typelib/DepCalc10.h"

namespace depcalc::windows {

/// What only this library's own records answer to, and no proxy does.
struct NativeRecord : IUnknown {
  virtual CalculateDepPtr STDMETHODCALLTYPE record() = 0;
};

}  // namespace depcalc::windows

__CRT_UUID_DECL(depcalc::windows::NativeRecord, 0x7D57A20A, 0x1892, 0x4B8F, 0xB5, 0xF2, 0x45, 0xB0,
                0x1D, 0x60, 0x78, 0xFF)

namespace depcalc::windows {
namespace {

// Each property's value on its way out and in.
struct Text {
  static BSTR out(const std::string& text) { return newBstr(text); }
  static std::string in(BSTR text) { return textFromBstr(text); }
};
struct Flag {
  static VARIANT_BOOL out(bool flag) { return flag ? VARIANT_TRUE : VARIANT_FALSE; }
  static bool in(VARIANT_BOOL flag) { return flag != VARIANT_FALSE; }
};
struct Money {
  static CY out(Currency amount) { return cyFrom(amount); }
  static Currency in(CY amount) { return currencyFrom(amount); }
};
struct Day {
  static DATE out(Date day) { return dateFrom(day); }
  static Date in(DATE date) { return dayFrom(date); }
};
struct Number {
  static double out(double number) { return number; }
  static double in(double number) { return number; }
};

#define DEPCALC_PROPERTY(name, type, Value)                          \
  HRESULT STDMETHODCALLTYPE get_##name(type* value) override {       \
    return give(value, [&] { return Value::out(record_->name()); }); \
  }                                                                  \
  HRESULT STDMETHODCALLTYPE put_##name(type value) override {        \
    return place_.answer([&] { record_->name(Value::in(value)); });  \
  }

class CalculateDepObject final
    : public ComObject<ICalculateDep, ISupportErrorInfo, IProvideClassInfo, NativeRecord> {
 public:
  CalculateDepObject() : record_(&own_) {}
  explicit CalculateDepObject(CalculateDepPtr foreign)
      : foreign_(std::move(foreign)), record_(foreign_.get()) {}

  DEPCALC_PROPERTY(RecIndex, BSTR, Text)
  DEPCALC_PROPERTY(RecNew, VARIANT_BOOL, Flag)
  DEPCALC_PROPERTY(RecSaved, VARIANT_BOOL, Flag)
  DEPCALC_PROPERTY(RecChanged, VARIANT_BOOL, Flag)
  DEPCALC_PROPERTY(AssetID, BSTR, Text)
  DEPCALC_PROPERTY(AssetName, BSTR, Text)
  DEPCALC_PROPERTY(ASerial, BSTR, Text)
  DEPCALC_PROPERTY(ADept, BSTR, Text)
  DEPCALC_PROPERTY(AssetEndDate, DATE, Day)
  DEPCALC_PROPERTY(ASalePrice, BSTR, Text)
  DEPCALC_PROPERTY(AssetBasis, CURRENCY, Money)
  DEPCALC_PROPERTY(AssetStartDate, DATE, Day)
  DEPCALC_PROPERTY(AssetSalvage, CURRENCY, Money)
  DEPCALC_PROPERTY(AssetProdCap, BSTR, Text)
  DEPCALC_PROPERTY(DepRecovery, double, Number)
  DEPCALC_PROPERTY(DepConvention, BSTR, Text)
  DEPCALC_PROPERTY(FYEnd, DATE, Day)
  DEPCALC_PROPERTY(DepMethod, BSTR, Text)

  HRESULT STDMETHODCALLTYPE get_DepItem(short myIndex, CURRENCY* value) override {
    return give(value, [&] { return cyFrom(record_->DepItem(myIndex)); });
  }
  HRESULT STDMETHODCALLTYPE put_DepItem(short myIndex, CURRENCY value) override {
    return place_.answer([&] { record_->DepItem(myIndex, currencyFrom(value)); });
  }
  HRESULT STDMETHODCALLTYPE FullyDepreciated(double depVal, double accDep,
                                             VARIANT_BOOL* value) override {
    return give(value, [&] { return Flag::out(record_->FullyDepreciated(depVal, accDep)); });
  }
  HRESULT STDMETHODCALLTYPE StraightLine(SAFEARRAY** amounts) override {
    return give(amounts, [&] { return arrayOfAmounts(record_->StraightLine()); });
  }
  HRESULT STDMETHODCALLTYPE SumofYearsDigits(SAFEARRAY** amounts) override {
    return give(amounts, [&] { return arrayOfAmounts(record_->SumofYearsDigits()); });
  }
  HRESULT STDMETHODCALLTYPE DoubleDecliningBalance(SAFEARRAY** amounts) override {
    return give(amounts, [&] { return arrayOfAmounts(record_->DoubleDecliningBalance()); });
  }
  HRESULT STDMETHODCALLTYPE UnitsofProduction(CURRENCY* rate) override {
    return give(rate, [&] { return cyFrom(record_->UnitsofProduction()); });
  }

  DEPCALC_DISPATCHED_BY(dispatch_, ICalculateDep)

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(ICalculateDep) ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    return give(info, [] { return typeInfoOf(__uuidof(::CalculateDep)).Detach(); });
  }

  CalculateDepPtr STDMETHODCALLTYPE record() override {
    if (foreign_ != nullptr) return foreign_;
    AddRef();
    return {&own_, ObjectRelease{this}};
  }

  /// What ends a record that stands in an object.
  struct ObjectRelease {
    CalculateDepObject* object;
    void operator()(CalculateDep* /*record*/) const { object->Release(); }
  };

 private:
  template <typename T, typename Value>
  HRESULT give(T* target, Value&& value) {
    return place_.answer([&] {
      T& place = required(target);
      place = T{};
      place = std::forward<Value>(value)();
    });
  }

  CallPlace place_{L"DepCalc10.CalculateDep", __uuidof(ICalculateDep)};
  Dispatch dispatch_{__uuidof(ICalculateDep)};
  CalculateDep own_;
  CalculateDepPtr foreign_;
  CalculateDep* record_;
};

#undef DEPCALC_PROPERTY

}  // namespace

IUnknown* newCalculateDep() { return static_cast<ICalculateDep*>(new CalculateDepObject); }

IDispatch* objectOfRecord(const CalculateDepPtr& record) {
  if (record == nullptr) return nullptr;
  const auto* standing = std::get_deleter<CalculateDepObject::ObjectRelease>(record);
  if (standing == nullptr) return static_cast<ICalculateDep*>(new CalculateDepObject(record));
  standing->object->AddRef();
  return static_cast<ICalculateDep*>(standing->object);
}

CalculateDepPtr recordOfObject(IUnknown* object) {
  if (object == nullptr) return {};
  ComPtr<NativeRecord> native;
  if (FAILED(object->QueryInterface(__uuidof(NativeRecord),
                                    reinterpret_cast<void**>(native.GetAddressOf()))))
    throw RuntimeError::typeMismatch();
  return native->record();
}

}  // namespace depcalc::windows
