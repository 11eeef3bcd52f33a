// A class of one object.
#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

#include <utility>

namespace depcalc::testing_support {

/// Hands out the one object of the application in this process.
class OneObjectFactory final : public IClassFactory {
 public:
  explicit OneObjectFactory(Microsoft::WRL::ComPtr<IDispatch> object)
      : object_(std::move(object)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It lives as long as the registration of the class.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return object_->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  Microsoft::WRL::ComPtr<IDispatch> object_;
};

}  // namespace depcalc::testing_support
