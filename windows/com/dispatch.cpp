#include "windows/com/dispatch.h"

#include <oleauto.h>

#include <deque>
#include <utility>
#include <vector>

#include "values/runtime_error.h"
#include "windows/com/safe_array.h"
#include "windows/com/type_library.h"
#include "windows/com/variant_value.h"

namespace depcalc::windows {
namespace {

/// One method, as the type library describes it.
class Method {
 public:
  Method(ITypeInfo& info, UINT index) : info_(info) {
    passed(info.GetFuncDesc(index, &description_));
  }
  ~Method() { info_.ReleaseFuncDesc(description_); }
  Method(const Method&) = delete;
  Method& operator=(const Method&) = delete;

  [[nodiscard]] bool is(DISPID member, WORD flags) const {
    return description_->memid == member && (description_->invkind & flags) != 0;
  }
  [[nodiscard]] ULONG_PTR slot() const { return static_cast<ULONG_PTR>(description_->oVft); }
  /// What the caller gives; the result is not among it.
  [[nodiscard]] UINT argumentCount() const { return parameterCount() - (hasResult() ? 1 : 0); }
  [[nodiscard]] bool hasResult() const {
    return parameterCount() > 0 &&
           (parameter(parameterCount() - 1).paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  }
  [[nodiscard]] VARTYPE argumentType(UINT index) const { return typeOf(parameter(index).tdesc); }
  [[nodiscard]] VARTYPE resultType() const {
    return typeOf(*parameter(parameterCount() - 1).tdesc.lptdesc);
  }

 private:
  [[nodiscard]] UINT parameterCount() const { return static_cast<UINT>(description_->cParams); }
  [[nodiscard]] const ELEMDESC& parameter(UINT index) const {
    return description_->lprgelemdescParam[index];
  }
  /// A type with a name is an enumeration, which is a Long; a pointer is one to an object.
  static VARTYPE typeOf(const TYPEDESC& type) {
    switch (type.vt) {
      case VT_USERDEFINED:
        return VT_I4;
      case VT_PTR:
        return VT_DISPATCH;
      case VT_SAFEARRAY:
        return static_cast<VARTYPE>(VT_ARRAY | type.lptdesc->vt);
      default:
        return type.vt;
    }
  }

  ITypeInfo& info_;
  FUNCDESC* description_ = nullptr;
};

UINT methodCount(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  passed(info.GetTypeAttr(&attributes));
  const UINT count = attributes->cFuncs;
  info.ReleaseTypeAttr(attributes);
  return count;
}

UINT methodIndex(ITypeInfo& info, DISPID member, WORD flags) {
  const UINT count = methodCount(info);
  for (UINT index = 0; index < count; ++index) {
    if (Method(info, index).is(member, flags)) return index;
  }
  throw ComFailure(DISP_E_MEMBERNOTFOUND);
}

/// Which of the method's parameters the caller's argument `index`, counted from the last one as
/// callers do, is for.
UINT parameterOf(const DISPPARAMS& given, UINT index, UINT count) {
  if (index >= given.cNamedArgs) return given.cArgs - 1 - index;
  const DISPID name = given.rgdispidNamedArgs[index];
  if (name == DISPID_PROPERTYPUT) return count - 1;
  if (name < 0 || static_cast<UINT>(name) >= count) throw ComFailure(DISP_E_PARAMNOTFOUND);
  return static_cast<UINT>(name);
}

/// A property's new value may come with its name or without; nothing else may be left out.
void checkCount(const DISPPARAMS& given, UINT count) {
  if (given.cArgs != count) throw ComFailure(DISP_E_BADPARAMCOUNT);
  if (given.cNamedArgs > given.cArgs) throw ComFailure(DISP_E_BADPARAMCOUNT);
  if (count > 0) required(given.rgvarg);
  if (given.cNamedArgs > 0) required(given.rgdispidNamedArgs);
}

bool isLeftOut(const VARIANT& argument) {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

/// The argument as the method takes it. A text that is no number and the like is the caller's
/// mistake: it hears which argument.
void convertArgument(const VARIANT& given, VARTYPE type, VARIANT& taken) {
  if (isLeftOut(given)) throw ComFailure(DISP_E_PARAMNOTOPTIONAL);
  try {
    convertVariant(given, type, taken);
  } catch (const RuntimeError& error) {
    throw ComFailure(error.number() == RuntimeError::typeMismatch().number() ? DISP_E_TYPEMISMATCH
                                                                             : DISP_E_OVERFLOW);
  }
}

/// The arguments of one call, as the method takes them.
std::deque<Variant> takenArguments(const Method& method, const DISPPARAMS& given,
                                   UINT& bad_argument) {
  const UINT count = method.argumentCount();
  checkCount(given, count);
  std::deque<Variant> taken(count);
  for (bad_argument = 0; bad_argument < count; ++bad_argument) {
    const UINT parameter = parameterOf(given, bad_argument, count);
    VARIANT& value = taken[parameter].get();
    if (V_VT(&value) != VT_EMPTY) throw ComFailure(DISP_E_PARAMNOTFOUND);
    convertArgument(given.rgvarg[bad_argument], method.argumentType(parameter), value);
  }
  return taken;
}

/// What the method answers; where it has a result, that is in `result`.
HRESULT callMethod(IDispatch* self, const Method& method, std::deque<Variant>& arguments,
                   VARIANT& result) {
  std::vector<VARTYPE> types;
  std::vector<VARIANTARG*> values;
  for (Variant& argument : arguments) {
    types.push_back(V_VT(&argument.get()));
    values.push_back(&argument.get());
  }
  Variant place;
  if (method.hasResult()) {
    V_I8(&result) = 0;
    V_BYREF(&place.get()) = &V_I8(&result);
    types.push_back(VT_PTR);
    values.push_back(&place.get());
  }
  Variant answer;
  passed(DispCallFunc(self, method.slot(), CC_STDCALL, VT_ERROR, static_cast<UINT>(types.size()),
                      types.data(), values.data(), &answer.get()));
  const HRESULT answered = V_ERROR(&answer.get());
  if (SUCCEEDED(answered) && method.hasResult()) V_VT(&result) = method.resultType();
  return answered;
}

/// An array of Variants with the amounts of an array of money; any other value as it is.
void giveResult(Variant& result, VARIANT& target) {
  VariantInit(&target);
  if (V_VT(&result.get()) == (VT_ARRAY | VT_CY)) {
    V_ARRAY(&target) = variantsOfAmounts(*V_ARRAY(&result.get()));
    V_VT(&target) = VT_ARRAY | VT_VARIANT;
  } else {
    std::swap(target, result.get());
  }
}

/// What the method said of its error, for who called by name.
HRESULT exceptionOf(HRESULT result, EXCEPINFO* exception) {
  ComPtr<IErrorInfo> error;
  const bool told = GetErrorInfo(0, &error) == S_OK;
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = {};
  exception->scode = result;
  if (told) {
    error->GetSource(&exception->bstrSource);
    error->GetDescription(&exception->bstrDescription);
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

ITypeInfo& Dispatch::described() {
  if (methods_ == nullptr) {
    // The dual interface as a client's compiler sees it, with every method's place and result.
    const ComPtr<ITypeInfo> dispatched = typeInfoOf(place_.interface_id);
    HREFTYPE dual = 0;
    passed(dispatched->GetRefTypeOfImplType(static_cast<UINT>(-1), &dual));
    passed(dispatched->GetRefTypeInfo(dual, &methods_));
  }
  return *methods_.Get();
}

HRESULT Dispatch::typeInfoCount(UINT* count) const {
  return place_.answer([&] { required(count) = 1; });
}

HRESULT Dispatch::typeInfo(UINT index, ITypeInfo** info) const {
  return place_.answer([&] {
    required(info) = nullptr;
    if (index != 0) throw ComFailure(DISP_E_BADINDEX);
    *info = typeInfoOf(place_.interface_id).Detach();
  });
}

HRESULT Dispatch::idsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) {
  return place_.answer([&] {
    if (reserved != IID_NULL) throw ComFailure(DISP_E_UNKNOWNINTERFACE);
    required(ids);
    required(names);
    for (UINT i = 0; i < count; ++i) required(names[i]);
    if (count == 0) throw ComFailure(E_INVALIDARG);
    return DispGetIDsOfNames(&described(), names, count, ids);
  });
}

HRESULT Dispatch::invoke(IDispatch* self, REFIID reserved, const Call& call) {
  UINT bad_argument = 0;
  const HRESULT result = place_.answer([&] {
    if (reserved != IID_NULL) throw ComFailure(DISP_E_UNKNOWNINTERFACE);
    const DISPPARAMS& given = required(call.arguments);
    const Method method(described(), methodIndex(described(), call.member, call.flags));
    auto arguments = takenArguments(method, given, bad_argument);
    Variant answer;
    SetErrorInfo(0, nullptr);
    const HRESULT answered = callMethod(self, method, arguments, answer.get());
    if (FAILED(answered)) return exceptionOf(answered, call.exception);
    if (call.result != nullptr) giveResult(answer, *call.result);
    return S_OK;
  });
  if (FAILED(result) && call.bad_argument != nullptr) *call.bad_argument = bad_argument;
  return result;
}

}  // namespace depcalc::windows
