// What the system asks of a library with classes.
#include <windows.h>

#include <objbase.h>

#include "windows/com/module_count.h"

STDAPI DllCanUnloadNow() { return depcalc::moduleUnused() ? S_OK : S_FALSE; }

STDAPI DllGetClassObject(REFCLSID /*class_id*/, REFIID /*interface_id*/, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  return CLASS_E_CLASSNOTAVAILABLE;
}
