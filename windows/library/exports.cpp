// What the system asks of a library with classes.
#include <windows.h>

#include <objbase.h>

#include <string>
#include <system_error>

#include "windows/com/class_factory.h"
#include "windows/com/com_ptr.h"
#include "windows/com/module_count.h"
#include "windows/library/classes.h"
#include "windows/registration/class_registration.h"

using namespace depcalc::windows;

STDAPI DllCanUnloadNow() { return depcalc::moduleUnused() ? S_OK : S_FALSE; }

STDAPI DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** object) {
  return CallPlace{L"DepCalc10", IID_IClassFactory}.answer([&] {
    required(object) = nullptr;
    const ClassFactory::Maker make = makerOf(class_id);
    if (make == nullptr) throw ComFailure(CLASS_E_CLASSNOTAVAILABLE);
    const auto factory = owned<IClassFactory>(new ClassFactory(make));
    return factory->QueryInterface(interface_id, object);
  });
}

namespace {

template <typename Action>
HRESULT registered(Action&& action) {
  return CallPlace{L"DepCalc10", IID_NULL}.answer([&] {
    try {
      action();
    } catch (const std::system_error& error) {
      throw ComFailure(HRESULT_FROM_WIN32(error.code().value()));
    }
  });
}

}  // namespace

STDAPI DllRegisterServer() {
  return registered([] { registerLibrary(registeredLibrary(), depcalc::RegisterFor::everyone); });
}

STDAPI DllUnregisterServer() {
  return registered([] { unregisterLibrary(registeredLibrary(), depcalc::RegisterFor::everyone); });
}

/// With "user" for the one user who asks; without, for everyone.
STDAPI DllInstall(BOOL install, const wchar_t* command_line) {
  return registered([&] {
    const std::wstring asked = command_line == nullptr ? L"" : command_line;
    if (!asked.empty() && asked != L"user") throw ComFailure(E_INVALIDARG);
    const auto whom = asked.empty() ? depcalc::RegisterFor::everyone : depcalc::RegisterFor::user;
    install ? registerLibrary(registeredLibrary(), whom)
            : unregisterLibrary(registeredLibrary(), whom);
  });
}
