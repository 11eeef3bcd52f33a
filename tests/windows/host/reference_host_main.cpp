// orvw32_reference_host.exe CLASS [shared]: a host application of its own process, started by the
// system for whoever creates that class. It ends when nobody holds an object of it; shared, it has
// one object for all and ends when it is told to.
#include <windows.h>

#include <objbase.h>

#include <string>

#include "tests/windows/host/reference_host.h"
#include "windows/com/com_text.h"

namespace depcalc::testing_support {
namespace {

class ReferenceHostFactory final : public IClassFactory {
 public:
  explicit ReferenceHostFactory(bool shared) {
    if (shared) shared_ = newReferenceHost();
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // It lives as long as the program.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    used_ = true;
    const auto host = shared_ != nullptr ? shared_ : newReferenceHost();
    return host->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    locks_ += lock ? 1 : -1;
    return S_OK;
  }

  [[nodiscard]] bool done() const { return used_ && locks_ <= 0 && servedObjectCount() == 0; }

 private:
  Microsoft::WRL::ComPtr<IDispatch> shared_;
  bool used_ = false;
  int locks_ = 0;
};

/// Serves until nobody is left, or nobody came within a minute.
void serve(const ReferenceHostFactory& factory) {
  constexpr UINT look_interval = 100;
  constexpr int longest_wait = 600;
  SetTimer(nullptr, 0, look_interval, nullptr);
  MSG message{};
  for (int looks = 0; GetMessageW(&message, nullptr, 0, 0) > 0;) {
    DispatchMessageW(&message);
    if (message.message != WM_TIMER) continue;
    if (factory.done() || (++looks >= longest_wait && servedObjectCount() == 0)) return;
  }
}

}  // namespace
}  // namespace depcalc::testing_support

int main(int count, char** arguments) {
  using namespace depcalc::testing_support;
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  CLSID host_class{};
  const std::string text = count > 1 ? arguments[1] : "";
  if (FAILED(CLSIDFromString(depcalc::utf16(text).c_str(), &host_class))) return 2;
  ReferenceHostFactory factory(count > 2 && std::string(arguments[2]) == "shared");
  DWORD registration = 0;
  const HRESULT done = CoRegisterClassObject(host_class, &factory, CLSCTX_LOCAL_SERVER,
                                             REGCLS_MULTIPLEUSE, &registration);
  if (FAILED(done)) return 3;
  serve(factory);
  CoRevokeClassObject(registration);
  CoUninitialize();
  return 0;
}
