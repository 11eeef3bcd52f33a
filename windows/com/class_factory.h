// What makes objects.
#pragma once

#include <windows.h>

#include <objbase.h>

#include "windows/com/com_call.h"
#include "windows/com/com_object.h"
#include "windows/com/com_ptr.h"

namespace depcalc::windows {

/// Makes objects by `make`, which answers one with a reference that belongs to its caller. They are
/// no part of other objects.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  using Maker = IUnknown* (*)();

  explicit ClassFactory(Maker make) : make_(make) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    return place_.answer([&] {
      required(object) = nullptr;
      if (outer != nullptr) throw ComFailure(CLASS_E_NOAGGREGATION);
      return owned(make_())->QueryInterface(id, object);
    });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? lockModule() : unlockModule();
    return S_OK;
  }

 private:
  CallPlace place_{L"DepCalc10", IID_IClassFactory};
  Maker make_;
};

}  // namespace depcalc::windows
