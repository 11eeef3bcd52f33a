#include "tests/windows/library/library_objects.h"

#include <objbase.h>
#include <oleauto.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace depcalc::windows {
namespace {

template <typename Function>
Function* entry(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

Library::Library() : module_(LoadLibraryA(DEPCALC_LIBRARY)) {
  if (module_ == nullptr) throw std::runtime_error("no library at " DEPCALC_LIBRARY);
  OleInitialize(nullptr);
}

Library::~Library() {
  OleUninitialize();
  FreeLibrary(module_);
}

ComPtr<IUnknown> Library::make(REFCLSID id) const {
  const auto getClass =
      entry<HRESULT WINAPI(REFCLSID, REFIID, void**)>(module_, "DllGetClassObject");
  ComPtr<IClassFactory> factory;
  ComPtr<IUnknown> made;
  if (FAILED(getClass(id, IID_IClassFactory, reinterpret_cast<void**>(factory.GetAddressOf()))) ||
      FAILED(factory->CreateInstance(nullptr, IID_IUnknown,
                                     reinterpret_cast<void**>(made.GetAddressOf()))))
    throw std::runtime_error("no such object");
  return made;
}

bool Library::canUnload() const {
  return entry<HRESULT WINAPI()>(module_, "DllCanUnloadNow")() == S_OK;
}

CallResult call(IDispatch& object, DISPID member, WORD flags,
                std::initializer_list<VARIANT> arguments, VARIANT* answer) {
  std::vector<VARIANT> backwards(arguments);
  std::reverse(backwards.begin(), backwards.end());
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS given{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
  if (flags == DISPATCH_PROPERTYPUT) {
    given.rgdispidNamedArgs = &put;
    given.cNamedArgs = 1;
  }
  CallResult called{};
  called.result = object.Invoke(member, IID_NULL, LOCALE_NEUTRAL, flags, &given, answer,
                                &called.exception, nullptr);
  SysFreeString(called.exception.bstrDescription);
  SysFreeString(called.exception.bstrSource);
  return called;
}

VARIANT number(double value) {
  VARIANT variant;
  V_VT(&variant) = VT_R8;
  V_R8(&variant) = value;
  return variant;
}

VARIANT integer(LONG value) {
  VARIANT variant;
  V_VT(&variant) = VT_I4;
  V_I4(&variant) = value;
  return variant;
}

}  // namespace depcalc::windows
