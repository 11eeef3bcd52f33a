// Calls by dispatch identifier.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "windows/com/com_call.h"
#include "windows/com/com_ptr.h"

namespace depcalc::windows {

/// IDispatch over the methods of a dual interface, as the module's type library describes them.
/// Arguments are converted by the calculator's rules (variant_value.h), not by the system's
/// language; arrays are answered as arrays of Variants, since script engines read no others. It
/// answers the thread that it was made on.
class Dispatch {
 public:
  explicit Dispatch(REFGUID interface_id) : place_{L"DepCalc10", interface_id} {}

  HRESULT typeInfoCount(UINT* count) const;
  HRESULT typeInfo(UINT index, ITypeInfo** info) const;
  HRESULT idsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids);

  struct Call {
    DISPID member;
    WORD flags;
    DISPPARAMS* arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* bad_argument;
  };
  /// `self` is the dual interface. A method that fails is DISP_E_EXCEPTION, told in `exception`.
  HRESULT invoke(IDispatch* self, REFIID reserved, const Call& call);

 private:
  ITypeInfo& described();

  CallPlace place_;
  ComPtr<ITypeInfo> methods_;  // read when it is first asked for
};

/// What an object's IDispatch is when a Dispatch answers it.
#define DEPCALC_DISPATCHED_BY(dispatch, dual)                                                    \
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {                             \
    return (dispatch).typeInfoCount(count);                                                      \
  }                                                                                              \
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {           \
    return (dispatch).typeInfo(index, info);                                                     \
  }                                                                                              \
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,    \
                                          DISPID* ids) override {                                \
    return (dispatch).idsOfNames(reserved, names, count, ids);                                   \
  }                                                                                              \
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags,             \
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception, \
                                   UINT* bad_argument) override {                                \
    return (dispatch).invoke(static_cast<dual*>(this), reserved,                                 \
                             {member, flags, arguments, result, exception, bad_argument});       \
  }

}  // namespace depcalc::windows
