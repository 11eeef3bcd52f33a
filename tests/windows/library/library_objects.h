// Objects of the library under test, made as clients make them but without a registration.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <array>

#include "windows/com/com_ptr.h"
#include "windows/typelib/DepCalc10.h"

namespace depcalc::windows {

/// The library, loaded until the end, and COM for this thread.
class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] ComPtr<IUnknown> make(REFCLSID id) const;
  template <typename Interface>
  [[nodiscard]] ComPtr<Interface> make(REFCLSID id) const {
    ComPtr<Interface> made;
    make(id).As(&made);
    return made;
  }
  [[nodiscard]] bool canUnload() const;

 private:
  HMODULE module_;
};

inline const std::array control_classes{__uuidof(::DepCalcCont), __uuidof(::DepCalcCtl),
                                        __uuidof(::DepCalcDisplayCtl), __uuidof(::DepCalcView),
                                        __uuidof(::DepCalcPopup)};

/// As a client by name has it.
struct CallResult {
  HRESULT result;
  EXCEPINFO exception;
};
CallResult call(IDispatch& object, DISPID member, WORD flags,
                std::initializer_list<VARIANT> arguments, VARIANT* answer = nullptr);

VARIANT number(double value);
VARIANT integer(LONG value);

}  // namespace depcalc::windows
